#include "statements/messages/CamtReader.h"

#include <algorithm>

#include "statements/messages/AccountSwitch.h"
#include "statements/messages/CamtEntry.h"
#include "statements/messages/CamtFacts.h"
#include "statements/messages/LineCount.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

constexpr std::size_t kLooked = 65536;

bool IsStatementMessage(const std::string& element)
{
    return element.starts_with("BkToCstmr");
}

/// The message's identifier in its namespace, such as "pain.001.001.03"; empty if it has none.
std::string MessageName(std::string_view text)
{
    const std::string_view head = text.substr(0, kLooked);
    constexpr std::string_view kBefore = ":xsd:";
    for (std::size_t at = head.find(kBefore); at != std::string_view::npos;
         at = head.find(kBefore, at + 1)) {
        const std::string_view rest = head.substr(at + kBefore.size());
        if (rest.starts_with("head."))
            continue;  // of the header before the document
        return std::string(
            rest.substr(0, std::min<std::size_t>(rest.find_first_of("\"' \r\n"), 40)));
    }
    return {};
}

std::string Refusal(std::string_view text, const std::string& element)
{
    const std::string name = MessageName(text);
    if (element.empty() ||
        (name.starts_with("camt.05") && name.size() > 7 && name[7] >= '2' && name[7] <= '4'))
        return "The message breaks off before its first statement.";
    return "The file is a message of another kind (" + (name.empty() ? element : name) +
           "), not a statement.";
}

/// Brings the entries of a file to a sink.
class Rows : public ICamtParts {
public:
    Rows(std::string_view text, const CamtFacts& facts, IStatementSink& sink)
        : facts_(facts), sink_(sink), lines_(text), accounts_(facts, sink)
    {
    }

    void Begin(CamtKind kind) override { kind_ = kind; }
    void Account(const CamtPart&) override {}
    void Balance(const CamtPart&) override {}
    void Entry(const CamtEntryPart& part) override
    {
        const CamtOwner& owner = facts_.Owner(statement_);
        const std::size_t line = lines_.At(part.begin);
        std::optional<CamtEntry> entry = ReadCamtEntry(part, owner, tree_);
        if (!entry) {
            LeaveOut(line, LeftOutReason::NotARow, FirstWords(Squeezed(part.text)));
            return;
        }
        const auto account = facts_.AccountOf(statement_, entry->currency);
        // A currency of entries that are left out has no account of its own.
        accounts_.To(account ? *account : *facts_.AccountOf(statement_, {}));
        if (const auto reason = WhyNot(*entry, part, account.has_value()))
            LeaveOut(line, *reason, SummaryOf(part, *entry));
        else
            Add(*entry, part, line);
    }
    void End() override
    {
        accounts_.To(*facts_.AccountOf(statement_, {}));
        ++statement_;
    }
    void Broken(std::size_t offset, bool inEntry) override
    {
        if (inEntry)
            LeaveOut(lines_.At(offset), LeftOutReason::Incomplete, "The last entry of the file");
    }
    void Finish() { accounts_.Finish(); }

private:
    std::optional<LeftOutReason> WhyNot(const CamtEntry& entry, const CamtEntryPart& part,
                                        bool hasAccount)
    {
        if (entry.state == CamtState::NotBooked)
            return LeftOutReason::Pending;
        if (repeats_.IsRepeated(statement_, kind_, facts_.Owner(statement_), part))
            return LeftOutReason::TwiceInFile;
        if (!entry.amount)
            return LeftOutReason::NoAmount;
        if (!entry.date)
            return LeftOutReason::NoDate;
        return hasAccount ? std::nullopt : std::optional(LeftOutReason::OtherCurrency);
    }
    void Add(CamtEntry& entry, const CamtEntryPart& part, std::size_t line)
    {
        entry.row.line = line;
        facts_.Identify(statement_, part, entry.row);
        sink_.Row(entry.row);
        if (!entry.unfitPieces.empty())
            LeaveOut(line, LeftOutReason::NotARow,
                     FirstWords("pieces that do not add up to " + entry.row.amount.ToText() + ": " +
                                entry.unfitPieces));
    }
    void LeaveOut(std::size_t line, LeftOutReason reason, const std::string& text)
    {
        sink_.LeftOut({line, reason, text});
    }

    /// Switches by the numbers of the facts.
    class Accounts {
    public:
        Accounts(const CamtFacts& facts, IStatementSink& sink)
            : facts_(facts),
              switch_(sink, [&facts](std::size_t account) { return facts.Balances(account); })
        {
        }
        void To(std::size_t account) { switch_.To(account, facts_.Account(account)); }
        void Finish() { switch_.End(); }

    private:
        const CamtFacts& facts_;
        AccountSwitch switch_;
    };

    const CamtFacts& facts_;
    IStatementSink& sink_;
    LineCount lines_;
    Accounts accounts_;
    CamtRepeats repeats_;
    CamtTree tree_;
    CamtKind kind_ = CamtKind::Statement;
    std::size_t statement_ = 0;
};

class CamtReader : public IStatementReader {
public:
    explicit CamtReader(std::string_view text) : text_(text), facts_(text) {}

    [[nodiscard]] std::string Kind() const override { return "camt"; }
    [[nodiscard]] std::vector<OpenQuestion> Open(const StatementAnswers& answers) const override
    {
        if (!facts_.IsBroken() || answers.takeWholeRows)
            return {};
        return {{StatementQuestion::Truncated,
                 {"rows", "nothing"},
                 "rows",
                 "The file breaks off before its end, or is damaged there."}};
    }
    void Read(const StatementAnswers&, IStatementSink& sink) const override
    {
        Rows rows(text_, facts_, sink);
        facts_.Places().Read(rows);
        rows.Finish();
    }

private:
    std::string_view text_;
    CamtFacts facts_;
};

}  // namespace

bool IsCamt(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || text[start] != '<')
        return false;
    const std::string name = MessageName(text);
    return IsStatementMessage(CamtMessageElement(text)) || (name.size() > 4 && name[4] == '.');
}

std::unique_ptr<IStatementReader> ReadCamt(std::string_view text)
{
    const std::string element = CamtMessageElement(text);
    if (!IsStatementMessage(element))
        throw NotAStatement(Refusal(text, element));
    return std::make_unique<CamtReader>(text);
}

}  // namespace clb
