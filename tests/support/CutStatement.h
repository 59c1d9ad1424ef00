// Imports of statement files that were cut off.
#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/support/CrowdedBooks.h"

namespace clb {

/// Cuts a statement file off at any byte and checks what the import makes of the rest. What it
/// expects is computed from the bytes alone.
class CutStatement {
public:
    /// All transactions of the file must be valid and different. In a QIF file, all of them must be
    /// in sections of transactions.
    CutStatement(std::string name, std::string bytes)
        : name_(std::move(name)), whole_(std::move(bytes))
    {
        qif_ = name_.size() > 4 && EqualsIgnoringCase(name_.substr(name_.size() - 4), ".QIF");
        untouched_ = books_.Everything();
        books_.Import(name_, whole_);
        rows_ = Rows();
        EXPECT_EQ(rows_.size(), TransactionsIn(whole_)) << name_;
        EXPECT_FALSE(rows_.empty()) << name_;
    }

    [[nodiscard]] std::size_t Size() const { return whole_.size(); }

    /// Imports the first `length` bytes into the account, which has no rows before.
    void ExpectWholeTransactionsOnly(std::size_t length)
    {
        SCOPED_TRACE(name_ + " cut after " + std::to_string(length) + " bytes");
        const std::string piece = whole_.substr(0, length);
        books_.ForgetImported();

        books_.Import(name_, piece);

        const std::vector<std::string> rows = Rows();
        ASSERT_EQ(rows.size(), TransactionsIn(piece));
        // A piece that ends within a character is not valid UTF-8 and is read in another encoding.
        if (IsValidUtf8(piece) == IsValidUtf8(whole_)) {
            EXPECT_TRUE(std::equal(rows.begin(), rows.end(), rows_.begin()));
        }
        EXPECT_THAT(OnlyIn(untouched_, books_.Everything()), ::testing::IsEmpty());
        ExpectMessage(piece);
    }

private:
    /// Leaves out the identifiers of rows from a QIF file, because each import makes new ones.
    std::vector<std::string> Rows()
    {
        return books_.Rows(
            std::string("SELECT PostDate, Amount, Description, PayeeName, CheckID, ") +
            (qif_ ? "Category" : "FITID") + " FROM Trans WHERE Sequence > 2 ORDER BY Sequence");
    }
    [[nodiscard]] std::size_t TransactionsIn(const std::string& piece) const
    {
        const std::string end = qif_ ? "\n^" : "</STMTTRN>";
        std::size_t count = 0;
        for (std::size_t at = piece.find(end); at != std::string::npos;
             at = piece.find(end, at + 1))
            ++count;
        return count;
    }
    void ExpectMessage(const std::string& piece)
    {
        if (qif_)
            return ExpectCutDateListed(piece);
        const std::size_t version = piece.find("VERSION:102");
        const bool known = version != std::string::npos || piece.find("<OFC>") != std::string::npos;
        const FakeMessageBox::Box box = {"Invalid file format.", 16, "Corvane Ledgerbook"};
        const auto boxes = known ? std::vector<FakeMessageBox::Box>() : std::vector{box};
        EXPECT_EQ(books_.messages.boxes, boxes);
    }
    /// A piece may end within a date, so only its last line can be an invalid date.
    void ExpectCutDateListed(const std::string& piece)
    {
        const std::size_t before = piece.find_last_of('\n');
        std::string last = before == std::string::npos ? piece : piece.substr(before + 1);
        if (!last.empty() && last.back() == '\r')
            last.pop_back();
        const bool endsInDate = last.starts_with('D');
        // Two separators and a digit after them make a date, although perhaps of an early year.
        const bool isDate =
            std::count_if(last.begin(), last.end(),
                          [](char c) { return c == '/' || c == '\'' || c == '-'; }) == 2 &&
            last.find_last_of("0123456789") == last.size() - 1;
        const FakeMessageBox::Box box = {
            "Invalid data was found while importing. The following lines were skipped:\n" + last,
            48, "Corvane Ledgerbook"};
        const auto boxes =
            endsInDate && !isDate ? std::vector{box} : std::vector<FakeMessageBox::Box>();
        EXPECT_EQ(books_.messages.boxes, boxes);
    }

    CrowdedBooks books_;
    std::string name_;
    std::string whole_;
    bool qif_ = false;
    std::vector<std::string> rows_;
    std::vector<std::string> untouched_;
};

}  // namespace clb
