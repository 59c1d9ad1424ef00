#include "statements/form/FileAmounts.h"

#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// Whether the text has one mark and three digits after it.
bool LooksOpen(std::string_view text)
{
    const std::size_t mark = text.find_first_of(".,");
    if (mark == std::string_view::npos ||
        text.find_first_of(".,", mark + 1) != std::string_view::npos)
        return false;
    std::size_t digits = 0;
    while (mark + 1 + digits < text.size() &&
           IsDigit(static_cast<unsigned char>(text[mark + 1 + digits])))
        ++digits;
    return digits == 3;
}

bool MeansTwo(std::string_view text)
{
    if (!LooksOpen(text))
        return false;
    const auto point = ReadAmount(text, '.');
    const auto comma = ReadAmount(text, ',');
    return point && comma && *point != *comma;
}

}  // namespace

void FileAmounts::Add(std::string_view text)
{
    amounts_.Add(text);
    if (!MeansTwo(text))
        return;
    if (open_.empty())
        open_ = text;
    points_ = points_ || text.find('.') != std::string_view::npos;
    commas_ = commas_ || text.find(',') != std::string_view::npos;
}

bool FileAmounts::HasCommas() const
{
    return amounts_.Possible() == std::vector<char>{','};
}

bool FileAmounts::IsMixed() const
{
    return amounts_.Possible().empty();
}

std::optional<char> FileAmounts::Settled() const
{
    for (const DecimalMarks* const marks : {&amounts_, &others_}) {
        const std::vector<char> possible = marks->Possible();
        if (possible.size() == 1)
            return possible.front();
        // Amounts that are themselves written in both ways are not settled by other numbers.
        if (possible.empty() || (points_ && commas_))
            return std::nullopt;
    }
    return std::nullopt;
}

/// Few currencies have three decimals, so the likelier meaning is thousands.
char FileAmounts::Proposed() const
{
    return open_.find(',') == std::string::npos ? ',' : '.';
}

std::optional<OpenQuestion> FileAmounts::Open(std::optional<char> answer) const
{
    if (answer || open_.empty() || Settled())
        return std::nullopt;
    return OpenQuestion{StatementQuestion::Decimal,
                        {".", ","},
                        std::string(1, Proposed()),
                        "The amount \"" + open_ +
                            "\" can be thousands or have three decimals, and no other amount of "
                            "the file shows which."};
}

std::optional<Money> FileAmounts::Read(std::string_view text, std::optional<char> answer) const
{
    if (answer && !IsMixed())
        return ReadAmount(text, *answer);
    const auto point = ReadAmount(text, '.');
    const auto comma = ReadAmount(text, ',');
    if (point && comma && *point != *comma)
        return answer.value_or(Settled().value_or(Proposed())) == '.' ? point : comma;
    return point ? point : comma;
}

}  // namespace clb
