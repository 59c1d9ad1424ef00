// A small database for random statements.
#pragma once
#include <memory>

#include "engine/rows/Connection.h"
#include "engine/storage/EngineError.h"
#include "tests/fuzz/Fuzz.h"

namespace clb {

/// A small database in which statements may do anything. It is made again after a thousand uses,
/// and before it has grown so much that a product of its tables takes long.
class FuzzStore {
public:
    Connection& Open()
    {
        if (uses_ % 1000 == 0 || (uses_ % 16 == 0 && HasGrown()))
            Renew();
        ++uses_;
        return *connection_;
    }

private:
    bool HasGrown()
    {
        constexpr std::int32_t kMany = 16;
        try {
            return connection_->Execute("SELECT Sequence FROM Trans").RecordCount() > kMany ||
                   connection_->Execute("SELECT AccountID FROM Account").RecordCount() > kMany;
        } catch (const EngineError&) {
            return true;
        }
    }
    void Renew()
    {
        connection_.reset();
        const std::string folder = folder_.Path("books");
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        Connection::CreateFile(folder + "/clb.mdb",
                               "CREATE TABLE Trans (Sequence INTEGER PRIMARY KEY AUTOINCREMENT, "
                               "AccountID TEXT, Amount MONEY DEFAULT 0, PostDate DATETIME, Year "
                               "LONG, Cleared YESNO, Rate DOUBLE, "
                               "Category TEXT(50));"
                               "CREATE TABLE Account (AccountID TEXT, Balance MONEY DEFAULT 0);");
        connection_ = std::make_unique<Connection>();
        connection_->Open("Data Source=" + folder + "/clb.mdb");
        for (const char* statement :
             {"INSERT INTO Account (AccountID, Balance) VALUES ('1', 10)",
              "INSERT INTO Trans (AccountID, Amount, PostDate, Year, Cleared, Rate, Category) "
              "VALUES "
              "('1', -4.5, #2006-03-05#, 2006, TRUE, 0.5, 'Food')",
              "INSERT INTO Trans (AccountID, Amount, Category) VALUES ('2', 7, 'It''s')"})
            connection_->Execute(statement);
    }

    FuzzFolder folder_;
    std::unique_ptr<Connection> connection_;
    unsigned uses_ = 0;
};

}  // namespace clb
