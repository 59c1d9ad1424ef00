#include "statements/qif/QifWalk.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/Text.h"
#include "statements/form/TextScan.h"
#include "statements/qif/QifTypes.h"

namespace clb {
namespace {

/// Pieces that a record may have. More are a damaged file.
constexpr std::size_t kMostPieces = 10000;

/// Adds a line to a text of several.
void Append(std::string& text, std::string_view line)
{
    if (line.empty())
        return;
    text += text.empty() ? "" : " ";
    text += line;
}

void KeepFirst(std::string& field, std::string_view value)
{
    if (field.empty())
        field = value;
}

/// Sets a value that counts, and counts those that differ.
void SetCounted(std::string& field, unsigned& count, std::string_view value)
{
    count += !value.empty() && field != value ? 1U : 0U;
    if (!value.empty())
        field = value;
}

std::uint32_t BitOf(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? 1U << static_cast<unsigned>(letter - 'A') : 0U;
}

}  // namespace

void QifWalk::Run()
{
    std::string_view line;
    while (lines_.Next(line)) {
        line = TrimSpaces(line);
        if (line.starts_with('!'))
            Header(line);
        else if (!line.empty())
            Line(line);
    }
    record_.last = true;
    record_.lastLineIsWhole = lines_.IsWhole();
    EndRecord(false);
}

void QifWalk::Header(std::string_view line)
{
    EndRecord(false);
    const QifHeader header = ReadQifHeader(line);
    switch (header.kind) {
        case QifHeader::Kind::Type: BeginType(header.name); break;
        case QifHeader::Kind::Account:
            section_ = Section::Accounts;
            accountsNamed_ = 0;
            break;
        case QifHeader::Kind::Clear:
            // A list of all accounts has ended; none of them is the one of what follows.
            if (accountsNamed_ > 1)
                account_ = {};
            break;
        case QifHeader::Kind::Other: break;
    }
}

void QifWalk::BeginType(std::string_view name)
{
    const QifType type = FindQifType(name);
    if (type.isList) {
        section_ = Section::Skipped;
        return;
    }
    section_ = Section::Transactions;
    visitor_.BeginList({account_.account, type.account, type.investment});
}

void QifWalk::Line(std::string_view line)
{
    const char letter = line.front();
    if (letter == '^')
        return EndRecord(true);
    const std::string_view value = TrimSpaces(line.substr(1));
    if (section_ == Section::Accounts)
        AccountField(letter, value);
    if (section_ == Section::Accounts || section_ == Section::Skipped)
        return;
    if (BeginsNext(letter))
        EndRecord(false);
    if (firstLetter_ == 0) {
        firstLetter_ = letter;
        record_.line = lines_.Number();
    }
    Field(letter, value);
}

/// Whether a line begins another record although no '^' ended this one: a whole record begins with
/// the same letter. A piece may have a date of its own.
bool QifWalk::BeginsNext(char letter) const
{
    return letter == firstLetter_ && std::string_view("DTUPN").find(letter) != std::string::npos &&
           record_.pieces.empty() && !record_.date.empty() && record_.HasAmount();
}

void QifWalk::Field(char letter, std::string_view value)
{
    record_.letters |= BitOf(letter);
    switch (letter) {
        case 'D':
            if (record_.pieces.empty() || record_.date.empty())
                SetCounted(record_.date, record_.dates, value);
            break;
        case 'T': SetCounted(record_.amount, record_.amounts, value); break;
        case 'U': KeepFirst(record_.otherAmount, value); break;
        case 'N': KeepFirst(record_.number, value); break;
        case 'P': Append(record_.payee, value); break;
        case 'M': Append(record_.memo, value); break;
        case 'A': Append(record_.address, value); break;
        case 'L': KeepFirst(record_.category, value); break;
        case 'S':
        case 'E':
        case '$': PieceField(letter, value); break;
        case '%':
            if (!record_.pieces.empty())
                KeepFirst(record_.pieces.back().percent, value);
            break;
        default: break;
    }
}

void QifWalk::PieceField(char letter, std::string_view value)
{
    std::vector<QifPiece>& pieces = record_.pieces;
    const bool next =
        letter == 'S' || pieces.empty() || (letter == '$' && !pieces.back().amount.empty());
    if (next && pieces.size() == kMostPieces)
        return;
    if (next)
        pieces.emplace_back();
    switch (letter) {
        case 'S': pieces.back().category = value; break;
        case 'E': Append(pieces.back().memo, value); break;
        default: pieces.back().amount = value; break;
    }
}

void QifWalk::AccountField(char letter, std::string_view value)
{
    if (accountEnded_) {
        account_ = {};
        ++accountsNamed_;
        accountEnded_ = false;
    }
    if (letter == 'N')
        account_.account = value;
}

void QifWalk::EndRecord(bool byMark)
{
    accountEnded_ = true;
    if (firstLetter_ != 0) {
        const bool isRecord = !record_.date.empty() || record_.HasAmount();
        if (section_ == Section::Start && isRecord) {
            section_ = Section::Transactions;
            visitor_.BeginList({{}, FindQifType("Bank").account, false});
        }
        record_.ended = byMark;
        if (section_ == Section::Transactions)
            visitor_.Record(record_);
    }
    record_ = {};
    firstLetter_ = 0;
}

}  // namespace clb
