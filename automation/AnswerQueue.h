#pragma once
#include "automation/FormSteps.h"
#include "ports/IMessageBox.h"

#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace clb {

/// An answer to a message box, to a file dialog (empty: cancel), to a form.
struct BoxReply {
    BoxAnswer button = BoxAnswer::OK;
};
struct FileReply {
    std::string path;
};
struct FormReply {
    std::string form;
    std::vector<FormStep> steps;
};

/// Answers for what the program will ask, in order. Each question takes the head when it fits: same
/// kind of question, a button that the box has, the form of that name. A head that does not fit
/// stays.
class AnswerQueue {
public:
    using Answer = std::variant<BoxReply, FileReply, FormReply>;
    void Add(Answer answer) { answers_.push_back(std::move(answer)); }

    /// style: as of the message box asked.
    std::optional<BoxReply> TakeForBox(std::int32_t style);
    std::optional<FileReply> TakeForFile();
    std::optional<FormReply> TakeForForm(const std::string& name);

private:
    std::deque<Answer> answers_;
};

/// "OK", "Cancel", "Yes" or "No".
const char* NameOf(BoxAnswer button);
/// Nothing for other texts.
std::optional<BoxAnswer> ButtonOf(const std::string& name);
/// Whether a message box of the style has the button.
bool HasButton(std::int32_t style, BoxAnswer button);

}  // namespace clb
