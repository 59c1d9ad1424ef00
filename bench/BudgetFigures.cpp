#include "bench/BudgetFigures.h"

#include <stdexcept>

#include "bench/BareBudget.h"
#include "bench/Ledger.h"
#include "cli/Program.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace {

/// Everything that the grid shows, row by row, and the totals line.
using Texts = std::vector<std::string>;

/// The program's window, showing the budget.
class ShownBudget {
public:
    ShownBudget(const std::string& folder, LedgerSize size) : program_(folder, forms_)
    {
        clsView& view = program_.Window().View();
        view.HoldRefresh(true);
        view.View(vwBudget);
        view.Year(LateLedgerMonth(size, 0).year);
        view.HoldRefresh(false);
    }

    Texts Show(Month month)
    {
        frmController& window = program_.Window();
        window.View().Period(month.period);
        Texts texts;
        const auto rows = window.Grid.Rows().Count();
        for (std::size_t row = 1; row <= rows; ++row)
            FetchRow(row, texts);
        texts.push_back(window.txtTotal.Text());
        texts.push_back(window.txtTotal2.Text());
        return texts;
    }

private:
    void FetchRow(std::size_t row, Texts& texts)
    {
        GridComponent& grid = program_.Window().Grid;
        switch (grid.Rows().Kind(row)) {
            case GridRowKind::GroupHeading: texts.push_back(grid.Rows().HeadingText(row)); break;
            case GridRowKind::GroupFooter: texts.push_back(grid.FooterText(row)); break;
            default:
                for (const std::int32_t column : grid.Columns().Displayed())
                    if (!grid.Columns().Item(column).hidden)
                        texts.push_back(grid.CellText(row, column));
        }
    }

    NoForms forms_;
    Program program_;
};

/// What the grid must show, made from the reference's lines.
class ExpectedTexts {
public:
    explicit ExpectedTexts(const std::vector<BareBudget::Line>& lines)
    {
        for (auto first = lines.begin(); first != lines.end();) {
            const auto end = std::find_if(first, lines.end(), [&](const BareBudget::Line& line) {
                return line.group != first->group;
            });
            AddGroup({first, end});
            first = end;
        }
        texts_.resize(texts_.size() + kShownColumns);  // the line for a new row
        texts_.push_back(Money::FromScaled(budgeted_).Grouped());
        texts_.push_back(Money::FromScaled(actual_).Grouped());
    }

    [[nodiscard]] const Texts& Get() const { return texts_; }

private:
    static constexpr std::size_t kShownColumns = 5;

    void AddGroup(const std::vector<BareBudget::Line>& lines)
    {
        const std::string& group = lines.front().group;
        texts_.push_back(group + " (" + std::to_string(lines.size()) + " items)");
        std::int64_t budgeted = 0;
        std::int64_t actual = 0;
        for (const BareBudget::Line& line : lines) {
            texts_.insert(texts_.end(),
                          {line.category, Money::FromScaled(line.budgeted).Grouped(),
                           Money::FromScaled(line.actual).Grouped(),
                           Money::FromScaled(line.actual - line.budgeted).Grouped(), group});
            budgeted += line.budgeted;
            actual += line.actual;
        }
        texts_.push_back("Total (budgeted/actual): " + Money::FromScaled(budgeted).Dollars() +
                         " / " + Money::FromScaled(actual).Dollars());
        budgeted_ += budgeted;
        actual_ += actual;
    }

    Texts texts_;
    std::int64_t budgeted_ = 0;
    std::int64_t actual_ = 0;
};

void RequireSame(const Texts& shown, const Texts& expected)
{
    const auto count = std::max(shown.size(), expected.size());
    for (std::size_t at = 0; at < count; ++at) {
        const std::string ours = at < shown.size() ? shown[at] : "nothing";
        const std::string reference = at < expected.size() ? expected[at] : "nothing";
        if (ours != reference)
            throw std::runtime_error("the budget and its reference differ:\n  ours      " + ours +
                                     "\n  reference " + reference);
    }
}

}  // namespace

Rounds MeasureBudgetReloads(const std::string& folder, LedgerSize size, int rounds)
{
    ShownBudget shown(folder, size);
    BareDatabase database(DatabasePath(folder));
    BareBudget reference(database);
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        Cost ours;
        Cost bare;
        for (std::int32_t turn = 0; turn < kBudgetReloads; ++turn) {
            const Month month = LateLedgerMonth(size, turn);
            const Stopwatch watch;
            const Texts texts = shown.Show(month);
            ours += watch.Elapsed();
            const Stopwatch bareWatch;
            const auto lines = reference.Read(month);
            bare += bareWatch.Elapsed();
            RequireSame(texts, ExpectedTexts(lines).Get());
        }
        result.ours.push_back(ours);
        result.reference.push_back(bare);
    }
    return result;
}

std::vector<Figure> MeasureBudget(const WorkFolder& work, int rounds)
{
    const std::string large = DeliverLedger(work, kLargeLedger);
    Figure budget{.name = "budget",
                  .title = "a month's budget among 1,000,000 / one bare statement",
                  .unit = "ms",
                  .wallRatio = {},
                  .limit = 2};
    CompareTimes(budget, MeasureBudgetReloads(large, kLargeLedger, rounds),
                 {kBudgetReloads, kBudgetReloads});
    return {budget};
}

}  // namespace clb
