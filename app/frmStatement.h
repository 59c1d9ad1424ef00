// The dialog that asks what a statement file leaves open.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// The dialog "Import Statement": a list for each question that the whole file leaves open, with
/// what is proposed chosen, and below them the file's first rows as they would be read under the
/// present answers.
class frmStatement {
public:
    /// The reader is borrowed and outlives the dialog; questions are those that are open under the
    /// given answers, at least one.
    frmStatement(const std::string& source, const IStatementReader& reader,
                 std::vector<OpenQuestion> questions, StatementAnswers given);

    /// Shows the dialog. Nothing if the user cancels.
    std::optional<StatementAnswers> ShowDialog(IModalHost& host);

private:
    struct Asked {
        OpenQuestion question;
        std::unique_ptr<Label> label;
        std::unique_ptr<ListBox> list;
    };

    void Ask(OpenQuestion question);
    void ShowRows();
    [[nodiscard]] StatementAnswers Answers() const;

    const IStatementReader& reader_;
    StatementAnswers given_;
    bool accepted_ = false;
    Form form_;
    Label lblFile;
    std::vector<Asked> asked_;
    Label lblRows;
    RowList lstRows;
    Label lblLeftOut;
    Button btnOK;
    Button btnCancel;
};

}  // namespace clb
