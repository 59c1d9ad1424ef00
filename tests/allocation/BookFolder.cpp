#include "tests/allocation/BookFolder.h"

#include <sqlite3.h>

#include <cstring>
#include <fstream>

#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "history/History.h"
#include "tests/support/BackAndForth.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabase = "db/clb.mdb";

/// Reads the file in one piece, because files are read thousands of times.
std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

/// Leaves out the time of a step, or at which a balance was noticed: the system's clock.
std::string WithoutTime(std::string line)
{
    const std::size_t time = line.find("|t19:");
    return time == std::string::npos ? line
                                     : line.erase(time, std::strlen("|t19:2026-11-22 11:04:31"));
}

/// What the storage itself reports: "ok" for a sound file.
std::string IntegrityOf(const std::string& path)
{
    std::string found;
    sqlite3* file = nullptr;
    sqlite3_open_v2(path.c_str(), &file, SQLITE_OPEN_READWRITE, nullptr);
    const auto take = [](void* text, int, char** values, char**) {
        *static_cast<std::string*>(text) += values[0];
        return 0;
    };
    if (sqlite3_exec(file, "PRAGMA integrity_check", take, &found, nullptr) != SQLITE_OK)
        found = sqlite3_errmsg(file);
    sqlite3_close(file);
    return found;
}

}  // namespace

BookFolder::BookFolder(const std::vector<std::string>& statements)
{
    folder_.Write(kDatabase, EmptyDatabase());
    Connection connection;
    connection.Open("Data Source=" + Path(kDatabase));
    for (const std::string& statement : statements)
        connection.Execute(statement);
    connection.Settle();
    start_ = WithoutHistory(Tables());
}

void BookFolder::Command(const std::string& statement)
{
    Run([&statement](Connection& connection, History& history) {
        history.Begin("SQL");
        connection.Execute(statement);
    });
}

void BookFolder::UndoCommand()
{
    Run([](Connection&, History& history) { history.Undo(1); });
}

void BookFolder::Run(const std::function<void(Connection&, History&)>& work)
{
    Connection connection;
    connection.Open("Data Source=" + Path(kDatabase));
    History history(
        connection, [] { return *Date::Of(2006, 3, 5); }, "earlier");
    work(connection, history);
    connection.Settle();
}

std::string BookFolder::WrongInHistory() const
{
    const TempFolder copy(TempFolder::Memory());
    fs::copy_file(Path(kDatabase), copy.Path("clb.mdb"));
    const WayBack back = GoBackAndForth(copy.Path("clb.mdb"), start_);
    return back.past == Past::Whole ? "" : "the history does not lead back: " + back.why;
}

std::string BookFolder::Write(const std::string& name, const std::string& bytes)
{
    return folder_.Write(name, bytes);
}

void BookFolder::Keep()
{
    kept_ = Files();
    tables_ = Tables();
}

void BookFolder::PutBack() const
{
    for (const std::string& name : FileNames())
        if (!kept_.contains(name))
            fs::remove(Path(name));
    for (const auto& [name, bytes] : kept_) {
        if (BytesOf(Path(name)) == bytes)
            continue;
        std::fstream file(Path(name), std::ios::binary | std::ios::in | std::ios::out);
        if (!file)
            file.open(Path(name), std::ios::binary | std::ios::out);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        fs::resize_file(Path(name), bytes.size());
    }
}

std::vector<std::string> BookFolder::FileNames() const
{
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(Path()))
        if (entry.is_regular_file())
            names.push_back(entry.path().string().substr(Path().size() + 1));
    return names;
}

std::map<std::string, std::string> BookFolder::Files() const
{
    std::map<std::string, std::string> files;
    for (const std::string& name : FileNames())
        files[name] = BytesOf(Path(name));
    return files;
}

TableDump BookFolder::Tables() const
{
    const std::string integrity = IntegrityOf(Path(kDatabase));
    if (integrity != "ok")
        throw std::runtime_error("damaged: " + integrity);
    TableDump dump = DumpOf(Path(kDatabase));
    for (std::string& line : dump.lines)
        if (line.starts_with("CvBalance|") || line.starts_with("CvImport|") ||
            line.starts_with("CvStep|"))
            line = WithoutTime(std::move(line));
    return dump;
}

bool BookFolder::Holds(const std::string& text) const
{
    return !folder_.Holds(std::string(kDatabase) + "-journal") &&
           BytesOf(Path(kDatabase)).find(text) != std::string::npos;
}

bool BookFolder::Untouched() const
{
    return !folder_.Holds(std::string(kDatabase) + "-journal") &&
           BytesOf(Path(kDatabase)) == kept_.at(kDatabase);
}

}  // namespace clb
