#include "statements/csv/CsvRecords.h"

#include <algorithm>
#include <functional>

#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// A quoted field is not longer than this. An open quote would otherwise swallow the file.
constexpr std::size_t kLongestField = 1U << 16U;
/// The same for a field between apostrophes, which is on one line.
constexpr std::size_t kLongestApostrophes = 1000;
/// Fields beyond these are left out of their record.
constexpr std::size_t kMostFields = 500;
constexpr auto kNone = std::string_view::npos;

}  // namespace

bool CsvRecord::IsBlank() const
{
    return std::all_of(fields.begin(), fields.end(), [](std::string_view f) { return f.empty(); });
}

std::size_t CsvRecord::Filled() const
{
    std::size_t filled = fields.size();
    while (filled > 0 && fields[filled - 1].empty())
        --filled;
    return filled;
}

void CsvRecord::Join(std::size_t at, std::size_t extra)
{
    const std::string_view first = fields[at];
    const std::string_view last = fields[at + extra];
    const char* const end = last.data() + last.size();
    const bool inside =
        !first.empty() && !last.empty() && std::less_equal<>()(raw.data(), first.data()) &&
        std::less_equal<>()(end, raw.data() + raw.size()) && std::less<>()(first.data(), end);
    if (inside)
        fields[at] = std::string_view(first.data(), static_cast<std::size_t>(end - first.data()));
    const auto from = fields.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    fields.erase(from, from + static_cast<std::ptrdiff_t>(extra));
}

bool CsvRecords::Next(CsvRecord& record)
{
    record.fields.clear();
    unquoted_.clear();
    if (at_ >= text_.size())
        return false;
    record.line = line_;
    const std::size_t begin = at_;
    while (true) {
        const std::string_view field = TakeField();
        if (record.fields.size() < kMostFields)
            record.fields.push_back(field);
        if (at_ >= text_.size() || IsLineEnd(at_))
            break;
        ++at_;
    }
    record.raw = text_.substr(begin, at_ - begin);
    TakeLineEnd();
    if (dialect_.wrapped && record.fields.size() == 1)
        Unwrap(record);
    return true;
}

void CsvRecords::TakeLineEnd()
{
    if (at_ >= text_.size())
        return;
    ++line_;
    if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n')
        ++at_;
    ++at_;
}

void CsvRecords::Unwrap(CsvRecord& record)
{
    unquoted_.emplace_back(record.fields[0]);
    const std::string& inside = unquoted_.back();
    CsvRecords records(inside, {dialect_.delimiter, false});
    CsvRecord inner;
    if (!records.Next(inner))
        return;
    record.fields.clear();
    for (const std::string_view field : inner.fields)
        record.fields.push_back(unquoted_.emplace_back(field));
}

std::size_t CsvRecords::AfterSpaces(std::size_t at) const
{
    while (at < text_.size() && text_[at] != dialect_.delimiter &&
           (text_[at] == ' ' || text_[at] == '\t' || text_[at] == '\0'))
        ++at;
    return at;
}

bool CsvRecords::AtEndOfField(std::size_t at) const
{
    at = AfterSpaces(at);
    return at >= text_.size() || text_[at] == dialect_.delimiter || IsLineEnd(at);
}

std::string_view CsvRecords::TakeField()
{
    std::string_view field;
    const std::size_t begin = at_;
    at_ = AfterSpaces(at_);
    if (at_ < text_.size() && (TakeQuoted(field) || TakeApostrophes(field)))
        return TrimSpaces(field);
    at_ = begin;
    while (at_ < text_.size() && text_[at_] != dialect_.delimiter && !IsLineEnd(at_))
        ++at_;
    return TrimSpaces(text_.substr(begin, at_ - begin));
}

bool CsvRecords::TakeQuoted(std::string_view& field)
{
    // Spreadsheets write ="0012" to keep zeros.
    const std::size_t quote =
        text_[at_] == '=' && at_ + 1 < text_.size() && text_[at_ + 1] == '"' ? at_ + 1 : at_;
    if (text_[quote] != '"')
        return false;
    const std::size_t close = Closing(quote + 1);
    if (close == kNone)
        return false;
    const std::string_view inside = text_.substr(quote + 1, close - quote - 1);
    for (std::size_t i = 0; i < inside.size(); ++i)
        if (inside[i] == '\n' ||
            (inside[i] == '\r' && (i + 1 == inside.size() || inside[i + 1] != '\n')))
            ++line_;
    field = Unquoted(inside);
    at_ = AfterSpaces(close + 1);
    return true;
}

std::size_t CsvRecords::Closing(std::size_t begin)
{
    if (begin <= open_)
        return kNone;
    const std::size_t end = std::min(text_.size(), begin + kLongestField);
    bool lines = false;
    std::size_t at = begin;
    for (; at < end; ++at) {
        lines = lines || IsLineEnd(at);
        if (text_[at] != '"')
            continue;
        if (AtEndOfField(at + 1))
            return at;
        if (text_[at + 1] == '"') {
            ++at;
            continue;
        }
        // A field that begins on a later line: the quote before was never closed.
        const char before = at > begin ? text_[at - 1] : 'x';
        if (lines && (before == dialect_.delimiter || before == '\n' || before == '\r'))
            break;
    }
    open_ = at;
    return kNone;
}

std::string_view CsvRecords::Unquoted(std::string_view inside)
{
    if (inside.find("\"\"") == kNone)
        return inside;
    std::string& plain = unquoted_.emplace_back();
    plain.reserve(inside.size());
    for (std::size_t i = 0; i < inside.size(); ++i) {
        plain += inside[i];
        if (inside[i] == '"' && i + 1 < inside.size() && inside[i + 1] == '"')
            ++i;
    }
    return plain;
}

bool CsvRecords::TakeApostrophes(std::string_view& field)
{
    if (text_[at_] != '\'' || at_ < openApostrophe_)
        return false;
    const std::size_t end = std::min(text_.size(), at_ + kLongestApostrophes);
    std::size_t at = at_ + 1;
    for (; at < end && !IsLineEnd(at); ++at) {
        if (text_[at] != '\'')
            continue;
        if (AtEndOfField(at + 1)) {
            field = text_.substr(at_ + 1, at - at_ - 1);
            at_ = AfterSpaces(at + 1);
            return true;
        }
        if (text_[at - 1] == dialect_.delimiter)
            break;
    }
    openApostrophe_ = at;
    return false;
}

}  // namespace clb
