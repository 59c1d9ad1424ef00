// Any text as an OFX statement: rows go into the account that it names, nothing else changes.

#include "tests/fuzz/FuzzReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static ReaderRun run;
    const std::string path = run.Folder().Write("statement.ofx", TextOf(data, size));
    run.Run([&](modImport& import) { import.ImportOFX(path); });
    return 0;
}
