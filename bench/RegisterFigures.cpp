#include "bench/RegisterFigures.h"

#include <stdexcept>
#include <utility>

#include "bench/BareRegister.h"
#include "bench/Ledger.h"
#include "cli/Program.h"
#include "data/clsDatabase.h"
#include "platform/ProgramFolder.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr std::int32_t kReadings = 240;

/// The program's window, showing an account's register.
class ShownRegister {
public:
    ShownRegister(const std::string& folder, LedgerSize size) : program_(folder, forms_)
    {
        clsView& view = program_.Window().View();
        view.HoldRefresh(true);
        view.View(vwAccount);
        view.AccountID(LedgerAccount(1));
        view.Year(LateLedgerMonth(size, 0).year);
        view.HoldRefresh(false);
    }

    Cost Show(Month month)
    {
        const Stopwatch watch;
        program_.Window().View().Period(month.period);
        return watch.Elapsed();
    }

    void Require(const BareRegister::Result& expected)
    {
        Money balance;
        Money unused;
        clsDatabase& data = program_.Window().Data();
        data.CalcTotals(balance, unused);
        const std::int32_t rows = data.GetRows().RecordCount();
        if (rows != expected.rows || balance.Scaled() != expected.balance)
            throw std::runtime_error("the register and its reference differ");
    }

private:
    NoForms forms_;
    Program program_;
};

}  // namespace

Rounds MeasureRegisterReloads(const std::string& folder, LedgerSize size, int rounds)
{
    ShownRegister shown(folder, size);
    BareDatabase database(DatabasePath(folder));
    BareRegister reference(database);
    const std::string account = LedgerAccount(1);
    const auto readBare = [&](Month month) {
        const Stopwatch watch;
        const auto result = reference.Read(account, month);
        return std::pair(watch.Elapsed(), result);
    };
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        Cost ours;
        Cost bare;
        for (std::int32_t turn = 0; turn < kRegisterReloads; ++turn) {
            const Month month = LateLedgerMonth(size, turn);
            ours += shown.Show(month);
            const auto [cost, read] = readBare(month);
            bare += cost;
            shown.Require(read);
        }
        result.ours.push_back(ours);
        result.reference.push_back(bare);
    }
    return result;
}

namespace {

/// A data store that only reads months of registers.
class RowReader : private IShownState, private ICurrentRow {
public:
    RowReader(const std::string& folder, LedgerSize size)
        : size_(size), account_(LedgerAccount(1)), data_(folder, *this, *this)
    {
    }

    /// Reads every value of this many months and adds up the number of rows.
    Cost Read(std::int64_t& rows)
    {
        const Stopwatch watch;
        for (std::int32_t turn = 0; turn < kReadings; ++turn) {
            month_ = LateLedgerMonth(size_, turn);
            rows += ReadMonth();
        }
        return watch.Elapsed();
    }

private:
    std::int64_t ReadMonth()
    {
        Recordset& records = data_.GetRows();
        const std::size_t fields = records.Fields().size();
        std::int64_t rows = 0;
        for (; !records.AtEnd(); records.MoveNext(), ++rows)
            for (std::size_t field = 0; field < fields; ++field)
                if (IsNull(records.Get(field)))
                    throw std::runtime_error("a value is missing");
        return rows;
    }

    [[nodiscard]] std::int32_t View() const override { return vwAccount; }
    [[nodiscard]] std::int32_t Period() const override { return month_.period; }
    [[nodiscard]] std::int32_t Year() const override { return month_.year; }
    [[nodiscard]] const std::string& AccountType() const override { return type_; }
    [[nodiscard]] const std::string& AccountID() const override { return account_; }
    Value ColumnValue(std::int32_t) override { return Null(); }
    void ColumnValue(std::int32_t, const Value&) override {}

    LedgerSize size_;
    Month month_;
    std::string type_ = "Bank";
    std::string account_;
    clsDatabase data_;
};

Rounds MeasureRows(const std::string& largeFolder, const std::string& smallFolder, int rounds)
{
    RowReader large(largeFolder, kLargeLedger);
    RowReader small(smallFolder, kSmallLedger);
    Rounds result;
    for (int round = 0; round < rounds; ++round) {
        std::int64_t largeRows = 0;
        std::int64_t smallRows = 0;
        result.ours.push_back(large.Read(largeRows));
        result.reference.push_back(small.Read(smallRows));
        if (largeRows != smallRows || largeRows == 0)
            throw std::runtime_error("the months of both books differ");
    }
    return result;
}

}  // namespace

std::vector<Figure> MeasureRegister(const WorkFolder& work, int rounds)
{
    const std::string large = DeliverLedger(work, kLargeLedger);
    const std::string small = DeliverLedger(work, kSmallLedger);

    Figure shown{.name = "register",
                 .title = "a month's register among 1,000,000 / bare storage",
                 .unit = "us",
                 .wallRatio = {},
                 .limit = 3};
    CompareTimes(shown, MeasureRegisterReloads(large, kLargeLedger, rounds),
                 {kRegisterReloads, kRegisterReloads, 1e-6});
    Figure rows{.name = "rows",
                .title = "a month's rows among 1,000,000 / among 10,000",
                .unit = "us",
                .wallRatio = {},
                .limit = 3};
    CompareTimes(rows, MeasureRows(large, small, rounds), {kReadings, kReadings, 1e-6});
    return {shown, rows};
}

}  // namespace clb
