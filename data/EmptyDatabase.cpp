#include "data/EmptyDatabase.h"

#include "base/EmbeddedFiles.h"

namespace clb {

EmbeddedFiles EmptyDatabaseFiles();

std::string_view EmptyDatabase()
{
    return EmptyDatabaseFiles().files.front().bytes;
}

}  // namespace clb
