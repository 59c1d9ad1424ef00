#include "data/OwnFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace clb {

void MakeOwnFile(const std::string& path)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file >= 0)
        ::close(file);
}

}  // namespace clb
