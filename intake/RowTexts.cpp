#include "intake/RowTexts.h"

#include <algorithm>

#include "base/Text.h"
#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

constexpr std::size_t kStoredLength = 50;
constexpr std::string_view kBlank = "(BLANK)";

}  // namespace

std::string Comparable(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!blank)
            folded += c;
        else if (!folded.empty() && folded.back() != ' ')
            folded += ' ';
    }
    if (!folded.empty() && folded.back() == ' ')
        folded.pop_back();
    return ToUpperAscii(folded);
}

StoredTexts::StoredTexts(std::string_view description, std::string_view notes)
{
    for (const std::string_view text : {description, notes}) {
        const bool entities = text.find('&') != std::string_view::npos;
        std::string comparable = Comparable(entities ? OfxText(text) : text);
        if (!comparable.empty() && comparable != kBlank)
            texts_.push_back(std::move(comparable));
    }
}

RowTexts::RowTexts(const StatementRow& row)
{
    for (const std::string& text : {row.name, row.text})
        if (std::string whole = Comparable(text); !whole.empty())
            texts_.push_back({std::move(whole), Comparable(Left(text, kStoredLength))});
}

bool RowTexts::Equal(const Text& text, const std::string& stored)
{
    return stored == text.whole || stored == text.stored;
}

TextAgreement RowTexts::With(const StoredTexts& stored) const
{
    const std::vector<std::string>& others = stored.Comparables();
    if (texts_.empty() != others.empty())
        return TextAgreement::None;
    const bool hasAll = std::all_of(others.begin(), others.end(), [this](const auto& other) {
        return std::any_of(texts_.begin(), texts_.end(),
                           [&other](const Text& text) { return Equal(text, other); });
    });
    const bool isIn = std::all_of(texts_.begin(), texts_.end(), [&others](const Text& text) {
        return std::any_of(others.begin(), others.end(),
                           [&text](const std::string& other) { return Equal(text, other); });
    });
    if (hasAll && isIn)
        return TextAgreement::Whole;
    return hasAll || isIn ? TextAgreement::Part : TextAgreement::None;
}

}  // namespace clb
