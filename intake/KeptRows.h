// The rows of a statement between reading and storing.
#pragma once
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "intake/StatementSurvey.h"

namespace clb {

/// Surveys a statement while it is read, and keeps its rows as bytes, which take less room than the
/// file. So a file is gone through once and need not stay in memory while its rows are stored.
class KeptRows : public IStatementSink {
public:
    /// place: of the row's account among those of the survey
    using Take = std::function<void(std::size_t place, const StatementRow& row)>;

    [[nodiscard]] const StatementSurvey& Survey() const { return survey_; }
    /// Calls for every row in the order of the file.
    void ForEach(const Take& take) const;
    /// The same; forgets the rows on the way.
    void HandOver(const Take& take);

    // IStatementSink
    void BeginAccount(const StatementAccount& account) override { survey_.BeginAccount(account); }
    void EndAccount(const StatementBalances& balances) override { survey_.EndAccount(balances); }
    void Row(const StatementRow& row) override;
    void LeftOut(const LeftOutPart& part) override { survey_.LeftOut(part); }

private:
    StatementSurvey survey_;
    std::deque<std::string> blocks_;  ///< of whole rows
};

}  // namespace clb
