#include "cli/Table.h"

#include <algorithm>
#include <ostream>
#include <string_view>

#include "base/Text.h"

namespace clb {

namespace {

/// Puts a question mark in place of each byte that is not UTF-8.
std::string ValidText(std::string_view text)
{
    constexpr std::size_t kLongest = 4;
    std::string valid;
    while (!text.empty()) {
        std::size_t size = 1;
        while (size < kLongest && !IsValidUtf8(text.substr(0, size)))
            ++size;
        const bool character = IsValidUtf8(text.substr(0, size));
        valid += character ? text.substr(0, size) : std::string_view("?");
        text.remove_prefix(character ? std::min(size, text.size()) : 1);
    }
    return valid;
}

}  // namespace

std::string Printable(std::string text)
{
    if (!IsValidUtf8(text))
        text = ValidText(text);
    // Control characters of two bytes each, U+0080 to U+009F.
    for (std::size_t at = text.find('\xC2'); at != std::string::npos;
         at = text.find('\xC2', at + 1))
        if (static_cast<unsigned char>(text[at + 1]) < 0xA0)
            text.replace(at, 2, " ");
    for (char& character : text) {
        const auto code = static_cast<unsigned char>(character);
        if ((code < 0x20 && character != '\n') || code == 0x7F)
            character = ' ';
    }
    return text;
}

void Table::AddColumn(const std::string& caption, bool right)
{
    columns_.push_back({caption, right, Length(caption)});
}

void Table::AddRow(std::vector<std::string> cells)
{
    cells.resize(columns_.size());
    for (std::size_t at = 0; at < cells.size(); ++at) {
        cells[at] = Printable(cells[at]);
        std::replace(cells[at].begin(), cells[at].end(), '\n', ' ');
        columns_[at].width = std::max(columns_[at].width, Length(cells[at]));
    }
    rows_.push_back({std::move(cells), ""});
}

void Table::AddLine(const std::string& text)
{
    rows_.push_back({{}, Printable(text)});
}

void Table::PrintCells(std::ostream& out, const std::vector<std::string>& cells) const
{
    std::string line;
    for (std::size_t at = 0; at < columns_.size(); ++at) {
        const std::string blanks(columns_[at].width - Length(cells[at]), ' ');
        if (at != 0)
            line += "  ";
        line += columns_[at].right ? blanks + cells[at] : cells[at] + blanks;
    }
    out << TrimRight(line) << '\n';
}

void Table::Print(std::ostream& out) const
{
    std::vector<std::string> captions;
    std::vector<std::string> rules;
    for (const Column& column : columns_) {
        captions.push_back(column.caption);
        rules.emplace_back(column.width, '-');
    }
    PrintCells(out, captions);
    PrintCells(out, rules);
    for (const Row& row : rows_) {
        if (row.cells.empty())
            out << row.line << '\n';
        else
            PrintCells(out, row.cells);
    }
}

}  // namespace clb
