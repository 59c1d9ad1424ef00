#include "tests/stress/Transactions.h"

namespace clb {
namespace {

std::string TextOf(Month month)
{
    return std::to_string(month.year) + "-" + std::to_string(month.period);
}

std::string CellText(const Piece& piece, Cell cell)
{
    switch (cell) {
        case Cell::Amount: return std::to_string(piece.amount);
        case Cell::Category: return piece.category;
        default: return piece.notes;
    }
}

void SetCell(Piece& piece, Cell cell, const std::string& text)
{
    switch (cell) {
        case Cell::Amount: piece.amount = std::stoll(text); break;
        case Cell::Category: piece.category = text; break;
        default: piece.notes = text; break;
    }
}

/// One order of steps while it is tried.
struct Trial {
    Transaction transaction;
    std::string typedOver;  ///< what the cell showed when it was typed into
};

bool Split(const ReportedStep& step, Trial& trial)
{
    Piece& first = trial.transaction[step.piece];
    first.amount -= step.amount;
    const std::int32_t number = trial.transaction.rbegin()->first + 1;
    Piece second = first;
    second.amount = step.amount;
    second.description += " (split #" + std::to_string(number) + ")";
    const std::int64_t left = first.amount;
    trial.transaction[number] = second;
    return step.reportedFirst.value_or(left) == left &&
           step.reportedPiece.value_or(number) == number;
}

bool Move(const ReportedStep& step, Piece& piece)
{
    piece.month = step.direction > 0 ? piece.month.Next() : piece.month.Previous();
    return step.reportedMonth.value_or(piece.month) == piece.month;
}

/// The program must ask exactly if somebody else has changed the cell that was typed into.
bool Save(const ReportedStep& step, Piece& piece, const std::string& typedOver)
{
    const bool changed = CellText(piece, step.cell) != typedOver;
    if (changed != step.mine.has_value())
        return false;
    if (step.mine.value_or(true))
        SetCell(piece, step.cell, step.text);
    return true;
}

/// Performs the step. Returns false if its report does not fit.
bool Perform(const ReportedStep& step, Trial& trial)
{
    const auto found = trial.transaction.find(step.piece);
    const bool there = found != trial.transaction.end();
    if (step.kind == ReportedStep::Kind::Missing)
        return !there || (step.shown && *step.shown != found->second.month);
    if (step.kind == ReportedStep::Kind::Refused || !there)
        return step.kind == ReportedStep::Kind::Refused;
    switch (step.kind) {
        case ReportedStep::Kind::Split: return Split(step, trial);
        case ReportedStep::Kind::Move: return Move(step, found->second);
        case ReportedStep::Kind::Type:
            trial.typedOver = CellText(found->second, step.cell);
            return true;
        case ReportedStep::Kind::Save: return Save(step, found->second, trial.typedOver);
        default: trial.transaction.erase(found); return true;
    }
}

/// Each program's steps that are still to be performed.
using Rest = std::map<std::string, std::vector<ReportedStep>>;

bool AnyOrder(const Rest& rest, const Trial& trial, const Transaction& after)
{
    if (rest.empty())
        return trial.transaction == after;
    for (const auto& [program, steps] : rest) {
        Trial next = trial;
        if (!Perform(steps.front(), next))
            continue;
        Rest further = rest;
        std::vector<ReportedStep>& own = further[program];
        own.erase(own.begin());
        if (own.empty())
            further.erase(program);
        if (AnyOrder(further, next, after))
            return true;
    }
    return false;
}

std::string NameOf(ReportedStep::Kind kind)
{
    switch (kind) {
        case ReportedStep::Kind::Split: return "split";
        case ReportedStep::Kind::Move: return "moved";
        case ReportedStep::Kind::Type: return "typed into";
        case ReportedStep::Kind::Save: return "saved";
        case ReportedStep::Kind::Delete: return "deleted";
        case ReportedStep::Kind::Missing: return "did not find";
        default: return "refused to change";
    }
}

}  // namespace

std::string Describe(const Transaction& transaction)
{
    std::string text;
    for (const auto& [number, piece] : transaction)
        text += "  piece " + std::to_string(number) + ": " + piece.account + " | " +
                piece.description + " | " + std::to_string(piece.amount) + " | " + piece.category +
                " | " + piece.notes + " | " + TextOf(piece.month) + " | " + piece.fitid + " | " +
                piece.date + "\n";
    return text.empty() ? "  no pieces\n" : text;
}

std::string Describe(const ReportedStep& step)
{
    std::string text =
        "  " + step.program + " " + NameOf(step.kind) + " piece " + std::to_string(step.piece);
    if (step.kind == ReportedStep::Kind::Split)
        text += ", " + std::to_string(step.amount) + " to a new piece";
    if (step.reportedFirst)
        text += ", left " + std::to_string(*step.reportedFirst);
    if (step.reportedPiece)
        text += ", new piece " + std::to_string(*step.reportedPiece);
    if (step.kind == ReportedStep::Kind::Move)
        text += " by " + std::to_string(step.direction);
    if (step.reportedMonth)
        text += " to " + TextOf(*step.reportedMonth);
    if (step.kind == ReportedStep::Kind::Save)
        text += ": " + step.text;
    if (step.mine)
        text += *step.mine ? ", asked: mine" : ", asked: theirs";
    return text + "\n";
}

bool Explains(const std::vector<ReportedStep>& steps, const Transaction& before,
              const Transaction& after)
{
    Rest rest;
    for (const ReportedStep& step : steps)
        rest[step.program].push_back(step);
    return AnyOrder(rest, {before, ""}, after);
}

}  // namespace clb
