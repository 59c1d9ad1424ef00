// The rows of an OFX file.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "statements/form/Statement.h"
#include "statements/form/StatementReader.h"
#include "statements/form/TextLines.h"
#include "statements/ofx/OfxSurvey.h"
#include "statements/ofx/OfxWalk.h"

namespace clb {

/// Takes a second pass of a file and hands its rows on.
class OfxRows : public IOfxVisitor {
public:
    /// All are borrowed.
    OfxRows(std::string_view text, const OfxSurvey& survey, const StatementAnswers& answers,
            IStatementSink& sink)
        : survey_(survey), answers_(answers), sink_(sink), lines_(text)
    {
    }
    void BeginStatement() override;
    void EndStatement(const OfxFacts& facts) override;
    void Entry(const OfxEntry& entry) override;
    void Security(std::string_view name, std::size_t offset) override;
    void Failure(const OfxFailure& failure) override;
    void Other(OfxTag) override {}
    void OtherAmount(std::string_view) override {}

private:
    /// Trades or positions of one kind.
    struct Securities {
        std::string_view name;
        std::size_t line = 0;
        std::size_t count = 0;
    };
    [[nodiscard]] std::optional<LeftOutReason> WhyNoRow(const OfxEntry& entry);
    [[nodiscard]] std::optional<Date> Day(std::string_view stamp) const;
    [[nodiscard]] StatementRow RowOf(const OfxEntry& entry) const;
    void EnterAccount(const OfxEntry& entry);
    void LeaveOut(const OfxEntry& entry, std::size_t line, LeftOutReason reason);
    [[nodiscard]] const StatementAccount& Account() const
    {
        return survey_.Accounts().at(statement_);
    }

    const OfxSurvey& survey_;
    const StatementAnswers& answers_;
    IStatementSink& sink_;
    TextLines lines_;
    std::size_t statement_ = 0;
    std::string currency_;  ///< of the account that the sink has
    std::vector<Securities> securities_;
    std::unordered_set<std::size_t> seen_;  ///< keys of the identifiers that the file has again
};

}  // namespace clb
