// Any text as MT940 or MT942 messages.

#include "statements/messages/Mt940Reader.h"
#include "tests/fuzz/FuzzMessages.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    const std::string_view text = TextOf(data, size);
    (void)IsMt940(text);
    FuzzReaderOn(text, ReadMt940);
    return 0;
}
