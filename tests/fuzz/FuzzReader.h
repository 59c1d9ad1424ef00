// Feeds random statement files to the import.
#pragma once
#include "import/modImport.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"

namespace clb {

/// Books with one account and a row of another account. Files are read into them one after the
/// other.
class ReaderRun {
public:
    ReaderRun()
    {
        // The history would grow with every run.
        books_.window.Data().Database().Watch(nullptr);
        books_.AddAccount("1", "Bank", "Checking");
        books_.AddAccount("2", "Cash", "Purse");
        host_.fallback = "1";
        Clear();
        before_ = Stranger();
    }

    /// What was there before must stay as it was, whatever the file contains.
    template <typename Reader>
    void Run(const Reader& read)
    {
        read(import_);
        Require(Stranger() == before_);
        Require(books_.One("SELECT COUNT(*) FROM Account") == "2");
        Require(books_.One("SELECT COUNT(*) FROM Trans WHERE AccountID <> '2' AND Sequence = 0") ==
                "0");
        Clear();
        books_.messages.boxes.clear();
        host_.events.clear();
        ++books_.clock.ticks;
    }
    [[nodiscard]] const FuzzFolder& Folder() const { return folder_; }

private:
    void Clear()
    {
        books_.Execute("DELETE FROM Trans");
        books_.Execute("DELETE FROM Budget");
        books_.Execute(
            "INSERT INTO Trans (AccountID, Sequence, FITID, Amount) VALUES ('2', 1, 'X', 5)");
    }
    std::vector<std::string> Stranger()
    {
        return books_.Rows("SELECT * FROM Trans WHERE AccountID = '2' AND FITID = 'X'");
    }

    FuzzFolder folder_;
    Books books_;
    FakeImportHost host_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages,
                      books_.clock};
    std::vector<std::string> before_;
};

}  // namespace clb
