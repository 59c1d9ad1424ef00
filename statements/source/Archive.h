// Reads archives in memory.
#pragma once
#include <string>
#include <vector>

#include "statements/source/SourceFile.h"

namespace clb {

/// Sizes above which an archive is refused.
struct ArchiveLimits {
    std::size_t bytes = std::size_t{1} << 30U;  ///< of all files together
    std::size_t files = 10000;
};

[[nodiscard]] bool IsGzip(const std::string& bytes);
[[nodiscard]] bool IsZip(const std::string& bytes);
[[nodiscard]] bool IsTar(const std::string& bytes);

/// The content of a gzip file, checksums checked. Throws NotAStatement.
[[nodiscard]] std::string Gunzip(const std::string& bytes, const ArchiveLimits& limits = {});
/// The files in a zip or tar file, checksums checked. Throws NotAStatement.
[[nodiscard]] std::vector<SourceFile> FilesInArchive(const std::string& bytes,
                                                     const ArchiveLimits& limits = {});

}  // namespace clb
