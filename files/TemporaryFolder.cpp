#include "files/TemporaryFolder.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <new>

#include "files/FileError.h"
#include "files/Leftovers.h"

namespace clb {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder()
{
    std::error_code failure;
    const fs::path parent = fs::temp_directory_path(failure);
    if (failure)
        throw CannotWrite("the folder for temporary files", failure.value());
    RemoveTemporaryLeftovers();
    path_ = (parent / (TemporaryFront() + "XXXXXX")).string();
    if (!::mkdtemp(path_.data()))
        throw CannotWrite(parent.string(), errno);
}

TemporaryFolder::~TemporaryFolder()
{
    try {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    } catch (const std::bad_alloc&) {
        return;  // a later start removes it
    }
}

}  // namespace clb
