#include "files/ReadFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/Interruption.h"
#include "files/Descriptor.h"
#include "files/FileError.h"

namespace clb {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

/// The size of the file; 0 for a pipe.
std::size_t SizeOf(const Descriptor& file)
{
    struct stat status {};
    return ::fstat(file.Number(), &status) == 0 && status.st_size > 0
               ? static_cast<std::size_t>(status.st_size)
               : 0;
}

}  // namespace

std::string ReadFile(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) {
        const int reason = errno;
        Interruption::Check();
        throw CannotRead(path, reason);
    }
    // One byte more than the size, so that the end is found without growing.
    std::string bytes(std::max(SizeOf(file) + 1, kPiece), '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2);
        const ssize_t count = ::read(file.Number(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno != EINTR)
            throw CannotRead(path, errno);
        if (count == 0)
            break;
        if (count < 0)
            Interruption::Check();
        else
            filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace clb
