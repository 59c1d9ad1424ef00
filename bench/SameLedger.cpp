#include "bench/SameLedger.h"

#include <stdexcept>

#include "bench/Bare.h"

namespace clb {
namespace {

std::string Row(BareStatement& rows)
{
    if (!rows.Step())
        return "no row";
    std::string text;
    for (int column = 0; column < rows.Columns(); ++column)
        text.append(rows.Text(column)).append("|");
    return text;
}

void RequireSameRows(BareDatabase& ours, BareDatabase& reference, const std::string& table)
{
    const std::string sql = "SELECT * FROM " + table + " ORDER BY Sequence";
    BareStatement a = ours.Prepare(sql);
    BareStatement b = reference.Prepare(sql);
    for (;;) {
        const std::string row = Row(a);
        const std::string expected = Row(b);
        if (row != expected)
            throw std::runtime_error(table + " differs:\n  ours      " + row + "\n  reference " +
                                     expected);
        if (row == "no row")
            return;
    }
}

}  // namespace

void RequireSameLedger(const std::string& ours, const std::string& reference)
{
    BareDatabase a(ours);
    BareDatabase b(reference);
    for (const char* table : {"Account", "Trans", "Budget"})
        RequireSameRows(a, b, table);
}

}  // namespace clb
