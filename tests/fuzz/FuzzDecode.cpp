// Any bytes as a file that is unpacked and decoded: a text in UTF-8, or a refusal.

#include "base/Text.h"
#include "statements/form/StatementReader.h"
#include "statements/source/SourceFile.h"
#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string bytes(TextOf(data, size));
    try {
        for (const SourceFile& file : Unpack("file", bytes)) {
            const std::string text = DecodeStatement(file.bytes);
            Require(IsValidUtf8(text));
        }
    } catch (const NotAStatement&) {
        return 0;
    }
    return 0;
}
