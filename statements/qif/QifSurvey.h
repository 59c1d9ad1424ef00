// What the whole of a QIF file says, before its rows are read.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "statements/form/FileAmounts.h"
#include "statements/form/FileDates.h"
#include "statements/form/StatementReader.h"
#include "statements/qif/QifWalk.h"

namespace clb {

/// The account's name in an opening balance, a record such as POpening Balance, L[Savings]; empty
/// for other records.
[[nodiscard]] std::string NamedByOpening(const QifRecord& record);

/// Takes one pass of a file and keeps what concerns all of it.
class QifSurvey : public IQifVisitor {
public:
    void BeginList(const QifList& list) override;
    void Record(const QifRecord& record) override;

    [[nodiscard]] const FileAmounts& Amounts() const { return amounts_; }
    [[nodiscard]] const FileDates& Dates() const { return dates_; }
    /// The order of dates that is proposed if the file leaves it open.
    [[nodiscard]] DateText::Order Preferred() const;
    /// The names of the lists' accounts. One without a name has that of its opening balance.
    [[nodiscard]] const std::vector<std::string>& Accounts() const { return accounts_; }
    /// Whether the record is there as a whole, as far as can be seen. The last one of a file may
    /// lack its '^', but no line end and none of the letters that all others have.
    [[nodiscard]] bool IsWhole(const QifRecord& record) const;
    /// Whether the last record of the file is not there as a whole.
    [[nodiscard]] bool BreaksOff() const { return last_ && !IsWhole(*last_); }

private:
    FileAmounts amounts_;
    FileDates dates_;
    std::vector<std::string> accounts_;
    std::uint32_t common_ = UINT32_MAX;  ///< letters of every record that has ended
    std::optional<QifRecord> last_;      ///< if it has not ended
};

}  // namespace clb
