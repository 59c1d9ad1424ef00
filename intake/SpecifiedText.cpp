#include "intake/SpecifiedText.h"

#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "import/LineEndings.h"
#include "import/Omissions.h"
#include "import/StatementScan.h"
#include "import/modImport.h"
#include "intake/OfxText.h"

namespace clb {
namespace {

namespace scan = statement_scan;

constexpr std::int32_t kMarkup = 2;
/// What the import keeps of a memo.
constexpr std::size_t kMemoLength = 50;

/// What a row has in common on both ways, as one number. Rows are many, so they are not kept.
std::size_t HashOf(const std::string& identifier, const std::string& day, const Money& amount,
                   std::string_view name, std::string_view memo)
{
    return std::hash<std::string>()(identifier + '\n' + day + '\n' + amount.ToText() + '\n' +
                                    std::string(Trim(name)) + '\n' +
                                    std::string(Trim(Left(memo, kMemoLength))));
}

/// The rows as the reader found them; nothing if one has no identifier.
std::optional<std::vector<std::size_t>> Hashes(const KeptRows& rows)
{
    std::vector<std::size_t> hashes;
    bool identified = true;
    rows.ForEach([&](std::size_t, const StatementRow& row) {
        identified = identified && !row.identifier.empty();
        if (identified)
            hashes.push_back(HashOf(row.identifier,
                                    Replace(row.date.ToIso().substr(0, 10), "-", ""), row.amount,
                                    row.name, row.text));
    });
    return identified ? std::optional(std::move(hashes)) : std::nullopt;
}

/// The file as it is after the repair of its line ends; nothing if the import knows no such file.
std::optional<std::string> Repaired(const SourceFile& file)
{
    std::string text = DecodeFile(WithRepairedLineEnds(file.bytes));
    if (modImport::FormatOf({}, text) != kMarkup)
        return std::nullopt;
    return text;
}

/// The rows as the import finds them; nothing if it would stop at one.
std::optional<std::vector<std::size_t>> Scanned(const std::string& text)
{
    std::vector<std::size_t> hashes;
    std::size_t from = scan::Find(text, "<ACCTID>", 0);
    if (from == scan::kNone)
        return std::nullopt;
    for (std::string_view block = scan::Block(text, "STMTTRN", from); !block.empty();
         block = scan::Block(text, "STMTTRN", from)) {
        const auto amount = Money::TryParse(scan::Value(block, "<TRNAMT>", 0));
        if (!amount)
            return std::nullopt;
        hashes.push_back(HashOf(std::string(scan::Value(block, "<FITID>", 0)),
                                Left(scan::Value(block, "<DTPOSTED>", 0), 8), *amount,
                                scan::Value(block, "<NAME>", 0), scan::Value(block, "<MEMO>", 0)));
    }
    return hashes;
}

}  // namespace

bool MayBeSpecified(const SourceFile& file)
{
    const std::string_view bytes = file.bytes;
    const std::size_t start = bytes.find_first_not_of("\r\n");
    const std::string_view head =
        start == std::string_view::npos ? std::string_view() : bytes.substr(start, 40);
    return head.find("OFXHEADER:100") != std::string_view::npos ||
           head.find("<OFC>") != std::string_view::npos;
}

std::string SpecifiedText(const SourceFile& file, const std::string& kind, const KeptRows& rows)
{
    const StatementSurvey& survey = rows.Survey();
    if (kind != "ofx" || survey.Accounts().size() != 1 || !survey.LeftOut().empty() ||
        !MayBeSpecified(file))
        return {};
    const auto read = Hashes(rows);
    if (!read)
        return {};
    std::optional<std::string> text = Repaired(file);
    if (!text || !CountOmissions(*text, true).None() || Scanned(*text) != read)
        return {};
    return std::move(*text);
}

}  // namespace clb
