#include "export/ExportLosses.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "data/NoCategory.h"
#include "engine/sql/Criterion.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

constexpr std::size_t kNotesLength = 50;

/// A quick check: true if the text certainly comes back unchanged.
bool IsPlain(std::string_view text)
{
    if (text.starts_with(' ') || text.ends_with(' '))
        return false;
    unsigned special = 0;
    for (const char c : text)  // no early exit: the loop is faster without a branch
        special |= static_cast<unsigned>(c < ' ') | static_cast<unsigned>(c > '~') |
                   static_cast<unsigned>(c == '<');
    return special == 0;
}

/// The text that a reader of the file gets: in the encoding of the file, up to "<" or a carriage
/// return, without spaces at the ends.
std::string Returned(std::string_view text)
{
    if (IsPlain(text))
        return std::string(text);
    const std::string readable = FromWindows1252(ToWindows1252(text));
    return std::string(Trim(std::string_view(readable).substr(0, readable.find_first_of("<\r"))));
}

std::string Counted(std::int32_t count)
{
    return std::to_string(count) + (count == 1 ? " transaction" : " transactions");
}

}  // namespace

ExportLosses::ExportLosses(std::string accountID) : accountID_(std::move(accountID))
{
    TakeCharacters(accountID_);
}

void ExportLosses::Add(const ExportedRow& row)
{
    ++count_;
    if (!row.postDate)
        Report(row, "it has no date, and the reading ends there");
    if (!row.hasAmount)
        Report(row, "it has no amount, and the reading ends there");
    CheckIdentifier(row);
    if (row.postDate && row.postDate->Seconds() != 0)
        Report(row, "its date comes back without the time of day");
    const bool plain = IsPlain(row.identifier) && IsPlain(row.checkID) &&
                       IsPlain(row.description) && IsPlain(row.notes);
    if (!plain || row.description.empty() || row.notes.size() > kNotesLength)
        CheckTexts(row);
    if (!plain) {
        CheckTags(row);
        CheckCharacters(row);
    }
    if (row.category != kNoCategory)
        ++categories_;
    if (row.postDate && row.month != Month{row.postDate->Year(), row.postDate->Month()})
        ++moved_;
}

/// The import searches the account for the identifier and does not double its apostrophes.
void ExportLosses::CheckIdentifier(const ExportedRow& row)
{
    std::string changed;
    std::string_view identifier = row.identifier;
    if (!IsPlain(identifier)) {
        changed = Returned(identifier);
        identifier = changed;
        Check(row, "identifier", row.identifier, changed);
    }
    if (!identifiers_.Insert(identifier))
        Report(row, "left out, its identifier is an earlier one's");
    if (identifier.find('\'') == std::string_view::npos)
        return;
    try {
        Criterion::Parse("FITID = '" + std::string(identifier) + "'");
        Report(row, "an apostrophe in its identifier adds it again with each import");
    } catch (const EngineError&) {
        Report(row, count_ == 1
                        ? "an apostrophe in its identifier ends the reading there, unless the "
                          "account is empty"
                        : "an apostrophe in its identifier ends the reading there");
    }
}

/// The import reads a file as UTF-8 if all its characters could be UTF-8.
void ExportLosses::CheckCharacters(const ExportedRow& row)
{
    bool beyondAscii = false;
    for (const std::string_view text : {row.identifier, row.checkID, row.description, row.notes})
        beyondAscii = TakeCharacters(text) || beyondAscii;
    if (beyondAscii && Misread())
        misread_.push_back(count_);
}

bool ExportLosses::TakeCharacters(std::string_view text)
{
    if (IsPlain(text))
        return false;
    const std::string bytes = ToWindows1252(text);
    if (std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return false;
    if (characters_ != Characters::Windows1252)
        characters_ = IsValidUtf8(bytes) ? Characters::LookLikeUtf8 : Characters::Windows1252;
    return true;
}

/// If a text contains a tag that follows it in the file, the import uses the one in the text.
void ExportLosses::CheckTags(const ExportedRow& row)
{
    constexpr std::array<std::string_view, 4> kTags{"<CHECKNUM>", "<NAME>", "<MEMO>", "</STMTTRN>"};
    const auto holdsTag = [&kTags](std::string_view text) {
        return std::ranges::any_of(kTags, [text](std::string_view tag) {
            return text.find(tag) != std::string_view::npos;
        });
    };
    if (holdsTag(row.identifier) || holdsTag(row.checkID) || holdsTag(row.description))
        Report(row, "a tag within its texts is read as the file's own");
}

void ExportLosses::CheckTexts(const ExportedRow& row)
{
    const std::string description = Returned(row.description);
    Check(row, "description", row.description, description.empty() ? "(blank)" : description);
    Check(row, "notes", row.notes, Left(Returned(row.notes), kNotesLength));
    Check(row, "check number", row.checkID, Returned(row.checkID));
}

void ExportLosses::Check(const ExportedRow& row, const char* name, std::string_view text,
                         const std::string& returned)
{
    if (returned != text)
        Report(row, "\"" + returned + "\" comes back for its " + name);
}

void ExportLosses::Report(const ExportedRow& row, const std::string& what)
{
    rows_.insert(count_);
    lines_.push_back("Transaction " + NameOf(row) + ": " + what);
}

/// Its number in the file, and its date and description.
std::string ExportLosses::NameOf(const ExportedRow& row) const
{
    std::string name = std::to_string(count_) + " (";
    if (row.postDate)
        name += Date::FromDays(row.postDate->Days()).ToIso() + ", ";
    return name.append(row.description) + ")";
}

std::set<std::int32_t> ExportLosses::Rows() const
{
    std::set<std::int32_t> rows = rows_;
    if (Misread())
        rows.insert(misread_.begin(), misread_.end());
    return rows;
}

std::vector<std::string> ExportLosses::Lines() const
{
    std::vector<std::string> lines = lines_;
    if (Misread())
        lines.push_back(
            "All characters of the file could be UTF-8 and are read as such, which changes them: " +
            Counted(static_cast<std::int32_t>(misread_.size())));
    if (const std::string account = Returned(accountID_); account != accountID_)
        lines.push_back("The account's number comes back as \"" + account + "\"");
    if (categories_ > 0)
        lines.push_back("The file holds no categories: " + Counted(categories_));
    if (moved_ > 0)
        lines.push_back("Booked to another month than that of the date, which comes back: " +
                        Counted(moved_));
    return lines;
}

}  // namespace clb
