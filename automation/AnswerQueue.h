// The driver's answers to the program's questions.
#pragma once
#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "automation/FormSteps.h"
#include "ports/IMessageBox.h"

namespace clb {

/// Presses a button of a message box.
struct BoxReply {
    BoxAnswer button = BoxAnswer::OK;
};
/// Chooses a file in a file dialog.
struct FileReply {
    std::string path;  ///< empty: cancels the dialog
};
/// Works a form.
struct FormReply {
    std::string form;
    std::vector<FormStep> steps;
};

/// Answers to the program's next questions, in order. A question takes the first answer if that
/// answer fits: it is for the same kind of question, and the box has the button or the form has the
/// name. Otherwise the answer stays first.
class AnswerQueue {
public:
    using Answer = std::variant<BoxReply, FileReply, FormReply>;
    void Add(Answer answer) { answers_.push_back(std::move(answer)); }

    /// style: the style of the message box.
    [[nodiscard]] std::optional<BoxReply> TakeForBox(std::int32_t style);
    [[nodiscard]] std::optional<FileReply> TakeForFile();
    [[nodiscard]] std::optional<FormReply> TakeForForm(const std::string& name);

private:
    std::deque<Answer> answers_;
};

/// "OK", "Cancel", "Yes" or "No".
[[nodiscard]] const char* NameOf(BoxAnswer button);
/// The button of that name. Returns nothing for any other text.
[[nodiscard]] std::optional<BoxAnswer> ButtonOf(const std::string& name);
/// Whether a message box of the style has the button.
[[nodiscard]] bool HasButton(std::int32_t style, BoxAnswer button);

}  // namespace clb
