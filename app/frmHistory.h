// The dialog "History".
#pragma once
#include <functional>
#include <map>
#include <vector>

#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/RowList.h"
#include "history/History.h"
#include "ports/IDateForm.h"

namespace clb {

/// The dialog "History": lists the steps by day, shows what a chosen one has changed, and goes back
/// or forward to any of them. The label below the lists says what going there takes.
class frmHistory {
public:
    /// Undoes or redoes so many steps; reports by itself what cannot be done.
    using Take = std::function<void(bool undo, std::int64_t steps)>;

    /// The first three are borrowed; they outlive the dialog. today is the day of the local time.
    frmHistory(History& history, IModalHost& host, const IDateForm& dates, const Date& today,
               Take take);

    void ShowDialog();

private:
    void Load();
    void List();
    [[nodiscard]] std::vector<RowList::Line> StepLines();
    [[nodiscard]] std::string DayHeading(const std::string& day) const;
    [[nodiscard]] std::string ShownDay(const std::string& day) const;
    void ChooseStep(std::int64_t number);
    void ShowStep();
    [[nodiscard]] std::vector<RowList::Line> ChangesOf(const Step& step) const;
    [[nodiscard]] std::vector<RowList::Line> LinesOf(const RowStory& row) const;
    [[nodiscard]] std::string WhatItTakes() const;
    void Go(bool back);
    [[nodiscard]] bool Matches(const Step& step) const;
    [[nodiscard]] const Step* Chosen() const;
    [[nodiscard]] std::int64_t StepsTo(const Step& step) const;

    History& history_;
    IModalHost& host_;
    const IDateForm& dates_;
    Date today_;
    Take take_;
    std::string endedAt_;      ///< when a change of tables ended the history; empty: none did
    std::vector<Step> steps_;  ///< the newest first
    std::map<std::size_t, std::size_t> places_;  ///< of the lines' steps in steps_
    std::int64_t shown_ = 0;                     ///< number of the step that was shown last
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
