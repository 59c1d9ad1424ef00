// Any text as a statement: it runs or is refused with an engine's error.

#include "base/RuntimeError.h"
#include "tests/fuzz/FuzzStore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static FuzzStore store;
    Connection& connection = store.Open();
    try {
        Recordset rows = connection.Execute(TextOf(data, size));
        if (!rows.IsOpen())
            return 0;
        for (; !rows.AtEnd(); rows.MoveNext())
            for (std::size_t field = 0; field < rows.Fields().size(); ++field)
                rows.Get(field);
    } catch (const RuntimeError& error) {
        Require(error.Number() != 0);
    }
    return 0;
}
