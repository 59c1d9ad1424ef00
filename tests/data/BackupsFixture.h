// A fixture for the tests of backups.
#pragma once
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "data/Backups.h"
#include "data/ErrorText.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {

/// Backups of the store's folder.
class BackupsTest : public StoreTest {
protected:
    static Date Day(const std::string& iso) { return Date::FromIso(iso).value_or(Date()); }
    void AddCopies(const std::vector<std::string>& names) const
    {
        for (const std::string& name : names)
            folder_.Write("db/backup/clb-" + name + ".mdb", EmptyDatabase());
    }
    /// A database of the right size with an unreadable page.
    static std::string Damaged()
    {
        std::string bytes(EmptyDatabase());
        return bytes.replace(bytes.size() - 4096, 4096, std::string(4096, '\x55'));
    }
    std::string RefusalOf(const std::string& file)
    {
        const std::string before = folder_.Read("db/clb.mdb");
        std::string refusal = "nothing was refused";
        try {
            backups_.Restore(file, Day("2026-11-21"));
        } catch (const EngineError& error) {
            refusal = ErrorText(error);
        }
        EXPECT_TRUE(folder_.Read("db/clb.mdb") == before);
        EXPECT_THAT(backups_.Names(), testing::IsEmpty());
        return refusal;
    }
    [[nodiscard]] mode_t ModeOf(const std::string& name) const
    {
        struct stat status {};
        stat(folder_.Path(name).c_str(), &status);
        return status.st_mode & 0777;
    }
    static std::vector<std::string> AccountsIn(const std::string& path)
    {
        Connection connection;
        connection.Open("Data Source=" + path);
        Recordset rows = connection.Execute("SELECT AccountID FROM Account");
        return Lines(rows);
    }
    void CloseStore()
    {
        Store().Database().Settle();
        store_.reset();
    }

    Backups backups_{folder_.Path()};
};

}  // namespace clb
