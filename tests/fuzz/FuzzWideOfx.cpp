// Any text as a statement in OFX: it is read exactly or refused, the same each time.

#include "statements/ofx/OfxReader.h"
#include "tests/fuzz/FuzzStatement.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string_view text = TextOf(data, size);
    (void)IsOfx(text);
    try {
        ReadEveryWay(*ReadOfx(text));
    } catch (const NotAStatement&) {
        // The text holds no statement.
    }
    return 0;
}
