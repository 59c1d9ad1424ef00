// The whole program without a window, for tests.
#pragma once
#include <string>
#include <vector>

#include "app/frmController.h"
#include "data/EmptyDatabase.h"
#include "tests/support/FakeOutside.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// The whole program with a new folder, the delivered database and fake ports. It shows the net
/// worth in March 2006.
class Books : public FakeOutside {
public:
    /// `keepsCopies`: makes backups, as for a person and not as under automation.
    /// `importsEveryKind`: File > Import takes every kind of statement, as in a person's window.
    explicit Books(bool keepsCopies = false, bool importsEveryKind = false)
        : window(MakePorts(keepsCopies, importsEveryKind), WindowMetrics())
    {
        window.Load();
    }

    /// Returns the rows of a SELECT as lines of fields with "|" between them.
    std::vector<std::string> Rows(const std::string& select)
    {
        std::vector<std::string> lines;
        Recordset records;
        window.Data().Fill(records, select, true);
        for (; !records.AtEnd(); records.MoveNext())
            lines.push_back(Line(records));
        return lines;
    }
    std::string One(const std::string& select) { return Rows(select).at(0); }
    void Execute(const std::string& statement) { window.Data().Execute(statement); }

    void AddAccount(const std::string& id, const std::string& type, const std::string& description)
    {
        const auto quoted = [](const std::string& text) {
            return "'" + clsDatabase::ToSqlString(text) + "'";
        };
        Execute("INSERT INTO Account (AccountID, Type, Description) VALUES (" + quoted(id) + ", " +
                quoted(type) + ", " + quoted(description) + ")");
    }

    TempFolder folder;
    frmController window;

private:
    static std::string Line(const Recordset& records)
    {
        std::string line;
        for (std::size_t field = 0; field < records.Fields().size(); ++field)
            line += (field > 0 ? "|" : "") + ToText(records.Get(field));
        return line;
    }

    Ports MakePorts(bool keepsCopies, bool importsEveryKind)
    {
        folder.Write("db/clb.mdb", EmptyDatabase());
        return PortsOver(folder.Path(), keepsCopies, importsEveryKind);
    }
};

}  // namespace clb
