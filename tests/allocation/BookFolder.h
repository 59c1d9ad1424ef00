// A book in memory for tests in which allocations fail.
#pragma once
#include <functional>
#include <map>
#include <string>

#include "tests/crash/TableDump.h"
#include "tests/support/TempFolder.h"

namespace clb {

class Connection;
class History;

/// A small book in memory. It can be restored after each try, and its contents can be examined.
class BookFolder {
public:
    /// Makes a book with the delivered tables and runs these statements on it.
    explicit BookFolder(const std::vector<std::string>& statements);

    [[nodiscard]] std::string Path() const { return folder_.Path(); }
    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path(name); }
    /// Adds a file to those that are restored.
    std::string Write(const std::string& name, const std::string& bytes);

    /// Runs a statement as a command that the history records.
    void Command(const std::string& statement);
    /// Undoes the last of them.
    void UndoCommand();

    /// Takes the present state as the one to restore.
    void Keep();
    /// Restores everything. Files are written in place, for a program that has them open.
    void PutBack() const;

    /// Names of all files below the folder, with their bytes.
    [[nodiscard]] std::map<std::string, std::string> Files() const;
    [[nodiscard]] std::vector<std::string> FileNames() const;
    /// What the tables hold. Throws std::runtime_error if the file is damaged.
    [[nodiscard]] TableDump Tables() const;
    /// What is wrong with the way back through the history and forth again; empty if nothing is.
    [[nodiscard]] std::string WrongInHistory() const;
    /// Whether the database file is byte by byte as it was kept, without a journal beside it.
    [[nodiscard]] bool Untouched() const;
    /// Whether the database file contains the text and has no journal beside it.
    [[nodiscard]] bool Holds(const std::string& text) const;
    [[nodiscard]] const TableDump& KeptTables() const { return tables_; }
    [[nodiscard]] bool WasKept(const std::string& name) const { return kept_.contains(name); }

private:
    void Run(const std::function<void(Connection&, History&)>& work);

    TempFolder folder_{TempFolder::Memory()};
    std::map<std::string, std::string> kept_;
    TableDump tables_;
    TableDump start_;  // where the history leads back to
};

}  // namespace clb
