#include <utility>

#include "statements/source/Archive.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

std::vector<SourceFile> FilesOf(const std::string& name, const std::string& bytes)
{
    std::vector<SourceFile> files = FilesInArchive(bytes);
    for (SourceFile& file : files)
        file.name.insert(0, name + "/");
    return files;
}

/// Not from a list of files, which would copy the bytes.
std::vector<SourceFile> Single(std::string name, std::string bytes)
{
    std::vector<SourceFile> files;
    files.push_back({std::move(name), std::move(bytes)});
    return files;
}

/// The name of the file in a gzip file: without ".gz".
std::string WithoutEnding(const std::string& name)
{
    return name.size() > 3 && name.ends_with(".gz") ? name.substr(0, name.size() - 3) : name;
}

}  // namespace

std::vector<SourceFile> Unpack(const std::string& name, std::string bytes)
{
    if (IsZip(bytes))
        return FilesOf(name, bytes);
    if (!IsGzip(bytes))
        return Single(name, std::move(bytes));
    std::string content = Gunzip(bytes);
    if (IsTar(content))
        return FilesOf(name, content);
    if (content.empty())
        return {};
    return Single(name + "/" + WithoutEnding(name.substr(name.rfind('/') + 1)), std::move(content));
}

}  // namespace clb
