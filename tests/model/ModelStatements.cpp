// Statements of the model: imports them into an account, and exports one.

#include <algorithm>

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

constexpr std::size_t kTextWidth = 50;
const char* const kZeroDate = "1899-12-30";

BudgetMonth MonthOf(const std::string& date)
{
    return {std::stoi(date.substr(0, 4)), std::stoi(date.substr(5, 2))};
}

/// Keeps the characters of the text that are among the first 256, one byte each, as in exported
/// files.
std::string OneByteEach(const std::string& text)
{
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] == '\xC3')
            bytes += static_cast<char>(text[++at] + 0x40);
        else
            bytes += text[at];
    return bytes;
}

/// "20060305123000[0]"; without a date only the zone remains.
std::string Stamp(const std::string& date)
{
    std::string digits;
    std::copy_if(date.begin(), date.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    if (!digits.empty())
        digits.resize(14, '0');
    return digits + "[0]";
}

}  // namespace

void ModelWindow::Import(const Statement& statement, const Action& action)
{
    std::string id = statement.account;
    if (FindAccount(id, action)) {
        if (statement.records)
            ReadRecords(statement, id);
        else
            ReadMarkup(statement, id);
    }
    books_.UpdateBalances();
    Refresh();
    ShowImportedAccount();
}

bool ModelWindow::FindAccount(std::string& id, const Action& action)
{
    static const char* const descriptions[] = {"Visa", "Imported", "O'Neil's"};
    static const char* const types[] = {"Bank", "Cash", "Credit Card", "Investment"};
    if (!id.empty() && books_.HasAccount(id))
        return true;
    switch (Around(action.second, 5)) {
        case 0:
        case 1: break;
        case 2:
        case 3: return MapAccount(id, action.third);
        default:
            // Nothing is entered, then the dialog is cancelled.
            if (action.third % 2 == 0)
                boxes_.push_back("You must enter an account description.");
            return false;
    }
    if (id.empty()) {
        id = "New Account";
        for (int n = 2; books_.HasAccount(id); ++n)
            id = "New Account (" + std::to_string(n) + ")";
    }
    Account account;
    account.id = id;
    account.description = descriptions[Around(action.third, 3)];
    account.type = types[Around(action.third, 4)];
    books_.Add(account);
    ShowInTree(id);
    return true;
}

bool ModelWindow::MapAccount(std::string& id, int which)
{
    if (books_.accounts.empty())
        return false;
    const std::string description =
        books_.accounts[Around(which, books_.accounts.size())].description;
    if (id.empty()) {
        id = books_.FirstWithDescription(description)->id;
        return true;
    }
    for (Account& account : books_.accounts)
        if (account.description == description)
            books_.Renumber(account, id);
    ShowInTree(id);
    // The shown account may be the one whose number changed.
    const std::string kind = std::to_string(view_) + '\x01';
    if (view_ > 3 && FindTag(kind + account_) == 0 && FindTag(kind + id) != 0)
        account_ = id;
    return true;
}

void ModelWindow::ShowInTree(const std::string& id)
{
    BuildTree();
    for (const char* kind : {"4\x01", "5\x01", "6\x01"})
        if (const std::size_t node = FindTag(kind + id); node != 0) {
            selected_ = static_cast<int>(node);
            return;
        }
}

void ModelWindow::ShowImportedAccount()
{
    const std::string& tag = tree_[static_cast<std::size_t>(selected_ - 1)].tag;
    if (view_ > 3 && tag.size() > 1 && tag != std::to_string(view_) + '\x01' + account_)
        ClickNode(static_cast<std::size_t>(selected_));
}

void ModelWindow::ReadMarkup(const Statement& statement, const std::string& id)
{
    for (const StatementRecord& entry : statement.entries) {
        bool searched = false;
        bool known = false;
        for (const Transaction& row : books_.transactions) {
            searched = searched || row.account == id;
            known = known || (row.account == id && row.fitid == entry.fitid);
        }
        // On purpose: the identifier is put into the criterion unchanged. If there are no rows,
        // nothing is searched.
        const bool readable = !searched || entry.fitid.find('\'') == std::string::npos;
        if (readable && known)
            continue;
        if (!readable || entry.date.second.empty() || entry.amount.second.empty()) {
            boxes_.push_back("Invalid data was found while importing:");
            return;
        }
        Transaction row;
        row.account = id;
        row.fitid = entry.fitid;
        row.check = entry.check;
        row.date = entry.date.second;
        row.month = MonthOf(row.date);
        row.amount = ParseAmount(entry.amount.second);
        row.description = entry.name.empty() ? "(blank)" : entry.name;
        row.notes = First(entry.memo, kTextWidth);
        row.category = "(none)";
        row.sequence = books_.NextSequence();
        books_.EnsureLine("(none)", row.month, "(none)", 0);
        books_.Add(row);
    }
}

void ModelWindow::ReadCategories(const Statement& statement)
{
    for (const StatementCategory& line : statement.categories) {
        Amount sum = 0;
        for (const std::string& amount : line.amounts)
            sum += ParseAmount(amount);
        books_.EnsureLine(line.category, month_, line.group, sum);
    }
}

void ModelWindow::ReadRecords(const Statement& statement, const std::string& id)
{
    const std::string run = "run " + std::to_string(++books_.runs);
    ReadCategories(statement);
    std::string date = kZeroDate;
    std::string skipped;
    for (const StatementRecord& entry : statement.entries) {
        if (entry.hasDate && entry.date.second.empty())
            skipped += "\nD" + entry.date.first;
        else if (entry.hasDate)
            date = entry.date.second;
        ReadEntry(entry, date, id, run, skipped);
    }
    if (!skipped.empty())
        boxes_.push_back(
            "Invalid data was found while importing. The following lines were skipped:" + skipped);
}

void ModelWindow::ReadEntry(const StatementRecord& entry, const std::string& date,
                            const std::string& id, const std::string& run, std::string& skipped)
{
    const std::string check = entry.check == "0" ? "" : entry.check;
    const Amount amount = entry.amount.second.empty() ? 0 : ParseAmount(entry.amount.second);
    // On purpose: the check number is put into the query unchanged.
    if (check.find('\'') != std::string::npos) {
        skipped += "\n^";
        return;
    }
    if (HasRecord(entry, date, amount, check, id, run))
        return;
    if (entry.category.size() > kTextWidth) {
        skipped += "\n^";
        return;
    }
    Transaction row;
    row.account = id;
    row.fitid = run;
    row.month = MonthOf(date);
    row.date = date;
    row.amount = amount;
    row.description = entry.name.empty() ? "(Blank)" : entry.name;
    row.notes = First(entry.memo, kTextWidth);
    row.check = check;
    row.category = entry.category;
    row.sequence = books_.NextSequence();
    books_.EnsureLine(row.category, row.month, "(none)", 0);
    books_.Add(row);
}

bool ModelWindow::HasRecord(const StatementRecord& entry, const std::string& date, Amount amount,
                            const std::string& check, const std::string& id,
                            const std::string& run) const
{
    return std::any_of(books_.transactions.begin(), books_.transactions.end(),
                       [&](const Transaction& row) {
                           return row.account == id && row.date == date && row.amount == amount &&
                                  row.notes == First(entry.memo, kTextWidth) && row.fitid != run &&
                                  (check.empty() || row.check == check);
                       });
}

/// The exported statement: its transactions from the first to the last, and the balance.
std::string ModelWindow::Exported() const
{
    std::string text;
    Amount balance = 0;
    int position = 0;
    for (const Transaction& row : books_.transactions) {
        if (row.account != account_)
            continue;
        ++position;
        balance += row.amount;
        const std::string type = !row.check.empty() ? "CHECK" : row.amount > 0 ? "CREDIT" : "FEE";
        const std::string fitid =
            row.fitid.empty() ? "CVLB" + std::to_string(position) : RunNames().Of(row.fitid);
        text += "<STMTTRN><TRNTYPE>" + type + "<DTPOSTED>" + Stamp(row.date) + "<TRNAMT>" +
                Plain(row.amount) + "<FITID>" + fitid +
                (row.check.empty() ? "" : "<CHECKNUM>" + row.check) + "<NAME>" +
                OneByteEach(row.description) + "<MEMO>" + OneByteEach(row.notes) + "</STMTTRN>";
    }
    return account_ + " " + text + "</BANKTRANLIST><LEDGERBAL><BALAMT>" + Plain(balance);
}

}  // namespace clb::model
