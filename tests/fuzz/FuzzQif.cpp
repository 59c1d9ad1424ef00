// Any text as a QIF file: rows go into the account picked, nothing else changes.

#include "tests/fuzz/FuzzReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static ReaderRun run;
    const std::string path = run.Folder().Write("file.qif", TextOf(data, size));
    run.Run([&](modImport& import) { import.ImportQIF(path); });
    return 0;
}
