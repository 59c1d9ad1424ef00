// The dialog that asks what a statement file leaves open.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/ColumnLists.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// The dialog that asks what a statement file leaves open: a list for each question, with what is
/// proposed chosen, and the file's first rows as they would be read under the present answers. If
/// the file leaves open which column is what, a list for each role of columns; questions that this
/// choice brings up or settles come and go with it. A list without items is not shown.
class frmStatement {
public:
    /// The reader is borrowed and outlives the dialog; questions are those that are open under the
    /// given answers, at least one. What was remembered is chosen as far as the questions offer it.
    frmStatement(const std::string& source, const IStatementReader& reader,
                 std::vector<OpenQuestion> questions, StatementAnswers given,
                 std::optional<StatementAnswers> remembered = {});

    /// Shows the dialog. Nothing if the user cancels, or takes nothing of a file that breaks off.
    std::optional<StatementAnswers> ShowDialog(IModalHost& host);

private:
    struct Asked {
        StatementQuestion question;
        std::unique_ptr<Label> label;
        std::unique_ptr<ListBox> list;
        std::vector<std::string> options;
    };

    void Build();
    void AskColumns();
    void Ask(StatementQuestion question);
    void Offer(Asked& asked, const OpenQuestion& question);
    void OfferOpen();
    void OfferSign(Asked& asked);
    [[nodiscard]] std::string RememberedOption(StatementQuestion question) const;
    [[nodiscard]] static std::string ChosenOf(const Asked& asked);
    [[nodiscard]] const OpenQuestion* Find(StatementQuestion question) const;
    [[nodiscard]] bool TakesNothing() const;
    void ColumnsChanged();
    void ShowRows();
    [[nodiscard]] StatementAnswers WithColumns() const;
    [[nodiscard]] StatementAnswers Answers() const;

    const IStatementReader& reader_;
    std::vector<OpenQuestion> questions_;  ///< open under the present columns
    StatementAnswers given_;
    std::optional<StatementAnswers> remembered_;
    bool inverted_ = false;  ///< how the file's own columns would be read
    bool filling_ = false;
    bool accepted_ = false;
    Form form_;
    Label lblFile;
    std::unique_ptr<ColumnLists> columns_;
    std::vector<Asked> asked_;
    Label lblRows;
    RowList lstRows;
    Label lblLeftOut;
    Button btnOK;
    Button btnCancel;
};

}  // namespace clb
