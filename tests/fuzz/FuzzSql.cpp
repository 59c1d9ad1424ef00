// Any text as a statement: it runs or is refused with an engine's error.

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "tests/fuzz/FuzzStore.h"

namespace {

/// A product of many tables is large and slow, and finds no faults.
bool NamesManyTables(std::string_view statement)
{
    const std::string text = clb::ToUpperAscii(statement);
    int named = 0;
    for (const std::string_view table : {"TRANS", "ACCOUNT"})
        for (auto at = text.find(table); at != std::string::npos; at = text.find(table, at + 1))
            ++named;
    return named > 3;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    if (NamesManyTables(TextOf(data, size)))
        return -1;
    static FuzzStore store;
    Connection& connection = store.Open();
    try {
        Recordset rows = connection.Execute(TextOf(data, size));
        if (!rows.IsOpen())
            return 0;
        for (; !rows.AtEnd(); rows.MoveNext())
            for (std::size_t field = 0; field < rows.Fields().size(); ++field)
                static_cast<void>(rows.Get(field));
    } catch (const RuntimeError& error) {
        Require(error.Number() != 0);
    }
    return 0;
}
