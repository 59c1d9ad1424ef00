#include "tests/allocation/BookFolder.h"

#include <sqlite3.h>

#include <fstream>

#include "data/EmptyDatabase.h"
#include "engine/Connection.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabase = "db/clb.mdb";

/// The storage's own judgement: "ok" for a sound file.
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
}

std::string BookFolder::Write(const std::string& name, const std::string& bytes)
{
    return folder_.Write(name, bytes);
}

void BookFolder::Keep()
{
    kept_ = Files();
    tables_ = DumpOf(Path(kDatabase));
}

void BookFolder::PutBack() const
{
    for (const auto& [name, bytes] : Files())
        if (!kept_.contains(name))
            fs::remove(Path(name));
    for (const auto& [name, bytes] : kept_) {
        if (folder_.Read(name) == bytes)
            continue;
        std::fstream file(Path(name), std::ios::binary | std::ios::in | std::ios::out);
        if (!file)
            file.open(Path(name), std::ios::binary | std::ios::out);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        fs::resize_file(Path(name), bytes.size());
    }
}

std::map<std::string, std::string> BookFolder::Files() const
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(Path()))
        if (entry.is_regular_file()) {
            const std::string name = fs::relative(entry.path(), Path()).string();
            files[name] = folder_.Read(name);
        }
    return files;
}

TableDump BookFolder::Tables() const
{
    const std::string integrity = IntegrityOf(Path(kDatabase));
    if (integrity != "ok")
        throw std::runtime_error("damaged: " + integrity);
    return DumpOf(Path(kDatabase));
}

bool BookFolder::Untouched() const
{
    return !folder_.Holds(std::string(kDatabase) + "-journal") &&
           folder_.Read(kDatabase) == kept_.at(kDatabase);
}

}  // namespace clb
