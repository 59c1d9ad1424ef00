// Any text as a criterion of Find: the set is then at a row or past the end, or the text is
// refused.

#include "base/RuntimeError.h"
#include "tests/fuzz/FuzzStore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    static FuzzStore store;
    static Connection& connection = store.Open();
    static Recordset rows = [] {
        Recordset opened;
        opened.Open("SELECT * FROM Trans", connection, CursorKind::Keyset, LockKind::Pessimistic);
        return opened;
    }();
    const std::int32_t count = rows.RecordCount();
    rows.MoveFirst();
    try {
        rows.Find(TextOf(data, size));
    } catch (const RuntimeError& error) {
        Require(error.Number() != 0);
    }
    Require(rows.RecordCount() == count);
    return 0;
}
