// Compares what the programs of a round reported with the book.

#include "base/Money.h"
#include "json/ValueJson.h"
#include "tests/stress/StressRound.h"

namespace clb {
namespace {

/// Whether a command says that the transaction does not exist, or no longer exists.
bool SaysMissing(const std::string& message)
{
    return message.find("There is no transaction") != std::string::npos ||
           message.find("deleted") != std::string::npos;
}

/// Whether a command says that another program has changed the transaction.
bool SaysChanged(const std::string& message)
{
    return message.find("has changed") != std::string::npos;
}

}  // namespace

void StressRound::Compare()
{
    for (const std::string& fault : raw_.Faults())
        Fault(fault);
    CompareImports();
    for (const Command& command : commands_)
        ReadReport(command);
    CompareTransactions();
    CompareShown();
    AskForCheck();
}

void StressRound::CompareImports()
{
    std::map<std::string, std::set<std::string>> fitids;
    for (const Import& import : imports_)
        CompareImport(import, fitids[import.account->number]);
    for (const auto& [account, distinct] : fitids)
        newRows_ -= static_cast<int>(distinct.size());
    if (newRows_ != 0)
        Fault("the imports reported " + std::to_string(newRows_) + " added rows too many");
}

void StressRound::CompareImport(const Import& import, std::set<std::string>& fitids)
{
    const Json report = Json::parse(import.process->Out(), nullptr, false);
    if (!report.is_object() || !report["refused"].is_null() || import.process->Wait() != 0)
        return Fault("an import failed");
    const int imported = report["imported"];
    newRows_ += imported;
    if (imported + report["skipped"].get<int>() != static_cast<int>(import.rows.size()))
        Fault("an import did not report all of its rows");
    for (const StressRow& row : import.rows) {
        fitids.insert(row.fitid);
        statement_[std::string(import.account->number) + " " + row.fitid] = row;
    }
}

void StressRound::ReadReport(const Command& command)
{
    ReportedStep step{.kind = ReportedStep::Kind::Missing,
                      .program = command.process->Story(),
                      .piece = command.piece,
                      .amount = command.amount,
                      .direction = command.direction};
    step.program = step.program.substr(0, step.program.find(" ->")) + " (" +
                   std::to_string(&command - commands_.data()) + ")";
    const Json report = Json::parse(command.process->Out(), nullptr, false);
    if (command.process->Wait() == 0 && report.is_object() && command.split) {
        step.kind = ReportedStep::Kind::Split;
        step.reportedFirst =
            Money::Parse(report["pieces"][0]["Amount"].get<std::string>()).Scaled();
        step.reportedPiece = report["pieces"][1]["piece"].get<std::int32_t>();
    } else if (command.process->Wait() == 0 && report.is_object()) {
        step.kind = ReportedStep::Kind::Move;
        step.reportedMonth = Month{report["year"], report["period"]};
    } else if (SaysChanged(command.process->Err())) {
        step.kind = ReportedStep::Kind::Refused;
    } else if (!SaysMissing(command.process->Err())) {
        Fault("a command failed without a reason: " + command.process->Story());
    }
    steps_[command.number].push_back(step);
}

void StressRound::CompareTransaction(std::int32_t number, const Transaction& after)
{
    const auto known = before_.find(number);
    const Transaction before = known == before_.end() ? Transaction() : known->second;
    if (Explains(steps_[number], before, after))
        return;
    std::string text = "transaction " + std::to_string(number) + " was\n" + Describe(before);
    for (const ReportedStep& step : steps_[number])
        text += Describe(step);
    Fault(text + "and is\n" + Describe(after));
}

/// Where a new transaction comes from. Empty if no program reported it.
std::string StressRound::OriginOfNew(const Transaction& transaction)
{
    const Piece& piece = transaction.begin()->second;
    if (transaction.size() != 1 || transaction.begin()->first != 0)
        return "";
    if (const auto entered = added_.find(piece.description); entered != added_.end())
        return piece.amount == entered->second && piece.account == shownAccount_->number &&
                       piece.month == shownMonth_ && piece.fitid.empty()
                   ? piece.description
                   : "";
    const std::string key = piece.account + " " + piece.fitid;
    const auto row = statement_.find(key);
    if (row == statement_.end() || piece.amount != row->second.amount ||
        piece.description != DescriptionOf(row->second))
        return "";
    const std::string& date = row->second.date;
    const Month month{std::stoi(date.substr(0, 4)), std::stoi(date.substr(4, 2))};
    return piece.month == month && piece.category == "(none)" ? key : "";
}

void StressRound::CompareTransactions()
{
    for (const auto& [number, transaction] : before_)
        CompareTransaction(number, after_[number]);
    std::set<std::string> origins;
    for (const auto& [number, transaction] : after_) {
        if (before_.contains(number))
            continue;
        const std::string origin = OriginOfNew(transaction);
        if (origin.empty() || !origins.insert(origin).second)
            Fault("transaction " + std::to_string(number) + " was not reported:\n" +
                  Describe(transaction));
    }
    if (origins.size() != statement_.size() + added_.size())
        Fault(std::to_string(statement_.size() + added_.size()) + " rows were reported, " +
              std::to_string(origins.size()) + " are there");
}

/// The register shows the rows of the file, whoever wrote them.
void StressRound::CompareShown()
{
    session_.Show(shownAccount_->name, shownMonth_);
    const std::vector<std::string> rows = session_.ShownRows();
    const std::multiset<std::string> shown(rows.begin(), rows.end());
    std::multiset<std::string> stored;
    for (const auto& [number, transaction] : after_)
        for (const auto& [index, piece] : transaction)
            if (piece.account == shownAccount_->number && piece.month == shownMonth_)
                stored.insert(std::to_string(number) + "/" + std::to_string(index) + ": " +
                              AmountText(piece.amount));
    if (shown != stored)
        Fault("the register shows " + std::to_string(shown.size()) + " rows, the file has " +
              std::to_string(stored.size()) + ", or their amounts differ");
}

void StressRound::AskForCheck()
{
    ClbProcess check({"check", "--home", book_, "--json"});
    if (check.Wait() != 0)
        Fault(check.Story());
}

}  // namespace clb
