// Any text as a camt message.

#include "statements/messages/CamtReader.h"
#include "tests/fuzz/FuzzMessages.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string_view text = TextOf(data, size);
    (void)IsCamt(text);
    FuzzReaderOn(text, ReadCamt);
    return 0;
}
