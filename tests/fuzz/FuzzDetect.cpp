// Any file: the repair of its line ends loses nothing of what it keeps, and its format is detected.

#include <iterator>

#include "base/RuntimeError.h"
#include "import/modImport.h"
#include "tests/fuzz/Fuzz.h"

namespace {

std::string Read(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The file's content must be in it or in the backup beside it, and a repaired file needs no
/// repair.
void RequireRepaired(const clb::FuzzFolder& folder, const std::string& path, std::string_view held)
{
    const std::string kept = path + ".org";
    if (!std::filesystem::exists(kept))
        return clb::Require(Read(path) == held);
    clb::Require(Read(kept) == held);
    folder.Remove("file.ofx.org");
    clb::modImport::FixLineEndings(path);
    clb::Require(!std::filesystem::exists(kept));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static const FuzzFolder folder;
    const std::string_view bytes = TextOf(data, size);
    const std::string path = folder.Write("file.ofx", bytes);
    try {
        modImport::FixLineEndings(path);
        // Examining the files takes many times as long as everything else.
        if (size % 8 == 0)
            RequireRepaired(folder, path, bytes);
        const std::int32_t kind = modImport::DetectFileFormat(path);
        Require(kind == 0 || kind == 2);
    } catch (const RuntimeError&) {
        Require(false);
    }
    folder.Remove("file.ofx.org");
    return 0;
}
