// The rows of a QIF file.
#pragma once
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "statements/form/Statement.h"
#include "statements/form/StatementReader.h"
#include "statements/qif/QifSurvey.h"
#include "statements/qif/QifWalk.h"

namespace clb {

/// Takes a second pass of a file and hands its rows on.
class QifRows : public IQifVisitor {
public:
    /// All are borrowed.
    QifRows(const QifSurvey& survey, const StatementAnswers& answers, IStatementSink& sink);
    void BeginList(const QifList& list) override;
    void Record(const QifRecord& record) override;
    /// Call after the pass.
    void Finish() { EndList(); }

private:
    /// Investments of one action.
    struct Trades {
        std::size_t line = 0;
        std::size_t count = 0;
    };
    void EndList();
    void Trade(const QifRecord& record);
    void Transaction(const QifRecord& record);
    void LeaveOut(const QifRecord& record, LeftOutReason reason);
    void LeaveOutPieces(const QifRecord& record);
    [[nodiscard]] std::optional<Money> Read(const std::string& amount) const;
    [[nodiscard]] std::optional<Money> AmountOf(const QifRecord& record) const;
    [[nodiscard]] std::optional<Money> SumOf(const std::vector<QifPiece>& pieces) const;

    const QifSurvey& survey_;
    const StatementAnswers& answers_;
    IStatementSink& sink_;
    DateText::Order order_;
    std::size_t lists_ = 0;
    bool investment_ = false;
    bool inAccount_ = false;                ///< between BeginAccount and EndAccount
    std::map<std::string, Trades> trades_;  ///< by action
};

}  // namespace clb
