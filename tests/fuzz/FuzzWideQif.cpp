// Any text as a statement in QIF: it is read exactly or refused, the same each time.

#include "statements/qif/QifReader.h"
#include "tests/fuzz/FuzzStatement.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string_view text = TextOf(data, size);
    (void)IsQifText(text);
    try {
        ReadEveryWay(*ReadQif(text));
    } catch (const NotAStatement&) {
        // The text holds no statement.
    }
    return 0;
}
