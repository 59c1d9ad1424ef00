// What the whole of an OFX file says, before its rows are read.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "statements/form/FileAmounts.h"
#include "statements/form/FileDates.h"
#include "statements/form/Statement.h"
#include "statements/ofx/OfxIdentifiers.h"
#include "statements/ofx/OfxWalk.h"

namespace clb {

/// Takes one pass of a file and keeps what concerns all of it.
class OfxSurvey : public IOfxVisitor {
public:
    void BeginStatement() override {}
    void EndStatement(const OfxFacts& facts) override;
    void Entry(const OfxEntry& entry) override;
    void Security(std::string_view, std::size_t) override {}
    void Failure(const OfxFailure& failure) override;
    void Other(OfxTag content) override;
    void OtherAmount(std::string_view raw) override;

    /// In the order of the file.
    [[nodiscard]] const std::vector<OfxFacts>& Statements() const { return statements_; }
    [[nodiscard]] const FileAmounts& Amounts() const { return amounts_; }
    /// The dates that are not in the form of OFX.
    [[nodiscard]] const FileDates& Dates() const { return dates_; }
    [[nodiscard]] const OfxIdentifiers& Identifiers() const { return identifiers_; }
    /// Whether the file writes end tags of its rows. Then a row without one is damaged.
    [[nodiscard]] bool ClosesRows() const { return closesRows_; }
    /// The account of each statement.
    [[nodiscard]] const std::vector<StatementAccount>& Accounts() const { return accounts_; }
    /// A number for the account of each statement.
    [[nodiscard]] const std::vector<std::size_t>& AccountKeys() const { return keys_; }
    /// Call after the pass, once.
    void Finish();
    /// A sentence about a file without a statement.
    [[nodiscard]] std::string WhyNoStatement(bool breaksOff) const;

private:
    std::vector<OfxFacts> statements_;
    std::vector<StatementAccount> accounts_;
    std::vector<std::size_t> keys_;
    FileAmounts amounts_;
    FileDates dates_;
    OfxIdentifiers identifiers_;
    std::string failure_;  ///< the first error, in words
    OfxTag other_ = OfxTag::Unknown;
    std::string_view currency_;  ///< of the first row of the statement that names one
    bool closesRows_ = false;
};

/// Which order of a date is proposed if the file leaves it open.
inline constexpr DateText::Order kOfxPreferredOrder = DateText::Order::DayMonthYear;

/// The error that a bank reports, such as "code 2000: General error".
[[nodiscard]] std::string ToText(const OfxFailure& failure);

/// Returns the stamp of a row's date: when it was booked or, if that is missing, when it was made.
[[nodiscard]] std::string_view StampOf(const OfxEntry& entry);

/// Whether the row takes an earlier one back.
[[nodiscard]] bool DeletesAnother(const OfxEntry& entry);

}  // namespace clb
