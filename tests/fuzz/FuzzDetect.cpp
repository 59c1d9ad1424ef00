// Any file: the repair of its line ends loses nothing of what it keeps, and what it is can be told.

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static const FuzzFolder folder;
    const std::string_view bytes = TextOf(data, size);
    const std::string path = folder.Write("file.ofx", bytes);
    try {
        modImport::FixLineEndings(path);
        if (std::filesystem::exists(path + ".org")) {
            Require(Read(path + ".org") == bytes);
            // Repaired once, it needs no repair again.
            folder.Remove("file.ofx.org");
            modImport::FixLineEndings(path);
            Require(!std::filesystem::exists(path + ".org"));
        } else {
            Require(Read(path) == bytes);
        }
        const std::int32_t kind = modImport::DetectFileFormat(path);
        Require(kind == 0 || kind == 2);
    } catch (const RuntimeError&) {
        Require(false);
    }
    folder.Remove("file.ofx.org");
    return 0;
}
