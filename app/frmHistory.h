// The dialog "History".
#pragma once
#include <functional>
#include <map>
#include <vector>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"
#include "history/History.h"

namespace clb {

/// The dialog "History": lists the steps by day, shows what a chosen one has changed, and goes back
/// or forward to any of them.
class frmHistory {
public:
    /// Undoes or redoes so many steps; reports by itself what cannot be done.
    using Take = std::function<void(bool undo, std::int64_t steps)>;

    /// History and host are borrowed; they outlive the dialog.
    frmHistory(History& history, IModalHost& host, Take take);

    void ShowDialog();

private:
    void Load();
    void List();
    void ShowStep();
    void Go(bool back);
    [[nodiscard]] bool Matches(const Step& step) const;
    [[nodiscard]] const Step* Chosen() const;
    [[nodiscard]] std::int64_t StepsTo(const Step& step) const;
    static std::vector<RowList::Line> LinesOf(const RowStory& row);

    History& history_;
    IModalHost& host_;
    Take take_;
    std::vector<Step> steps_;                    ///< the newest first
    std::map<std::size_t, std::size_t> places_;  ///< of the lines' steps in steps_
    Form form_;
    Label lblFilter;
    TextBox txtFilter;
    Label lblSteps;
    RowList lstSteps;
    Label lblChanges;
    RowList lstChanges;
    Label lblTakes;
    Button btnBack;
    Button btnForward;
    Button btnClose;
};

}  // namespace clb
