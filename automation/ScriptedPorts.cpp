#include "automation/ScriptedPorts.h"

#include <filesystem>

#include "automation/Automation.h"
#include "files/ReadFile.h"
#include "user/FormUser.h"

namespace clb {
namespace {

/// The button of a question that has no answer.
BoxAnswer Refusal(std::int32_t style)
{
    for (const BoxAnswer button : {BoxAnswer::No, BoxAnswer::Cancel})
        if (HasButton(style, button))
            return button;
    return BoxAnswer::OK;
}

/// Shows a form in the window, if there is one, while the form is worked.
class Shown {
public:
    Shown(IPresenter* presenter, Form& form) : presenter_(presenter), form_(form)
    {
        if (presenter_)
            presenter_->ShowForm(form_);
    }
    ~Shown()
    {
        // An error that ends the command must close the form too.
        form_.Hide();
        if (presenter_)
            presenter_->HideForm(form_);
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

private:
    IPresenter* presenter_;
    Form& form_;
};

}  // namespace

BoxAnswer ScriptedMessageBox::Show(const std::string& text, std::int32_t style,
                                   const std::string& title)
{
    const auto reply = answers_.TakeForBox(style);
    const BoxAnswer button = reply ? reply->button : Refusal(style);
    Json event{{"event", "box"},
               {"text", text},
               {"style", style},
               {"title", title},
               {"answer", NameOf(button)}};
    if (!reply)
        event["unanswered"] = true;
    log_.Add(std::move(event));
    return button;
}

std::optional<FileChoice> ScriptedFileDialog::Ask(const FileQuestion& question)
{
    const auto reply = answers_.TakeForFile();
    const std::string path = reply ? reply->path : "";
    Json event{{"event", "file"},
               {"kind", question.save ? "save" : "open"},
               {"filter", question.filter},
               {"flags", question.flags},
               {"title", question.title},
               {"name", question.name},
               {"answer", path}};
    if (!reply)
        event["unanswered"] = true;
    log_.Add(std::move(event));
    if (path.empty())
        return std::nullopt;
    return FileChoice{path, std::filesystem::path(path).parent_path().string(),
                      question.filterIndex, question.flags};
}

void ScriptedModalHost::Log(const Form& form, const char* moment, bool unanswered)
{
    Json event{{"event", "form"},
               {"name", form.Name()},
               {"moment", moment},
               {"caption", form.Caption()},
               {"controls", DescribeControls(form)}};
    if (unanswered)
        event["unanswered"] = true;
    log_.Add(std::move(event));
}

void ScriptedModalHost::Run(Form& form)
{
    const auto reply = answers_.TakeForForm(form.Name());
    const Shown shown(presenter_, form);
    Log(form, "open", !reply);
    if (reply)
        Work(form, reply->steps);
    const bool leftOpen = form.Visible();
    if (leftOpen)
        FormUser(form).Cancel();
    Log(form, "close", leftOpen);
}

void ScriptedModalHost::Work(Form& form, const std::vector<FormStep>& steps)
{
    for (const FormStep& step : steps) {
        if (!form.Visible())
            return;
        Perform(form, step);
        if (presenter_)
            presenter_->ProcessEvents();
    }
}

void ScriptedModalHost::Perform(Form& form, const FormStep& step)
{
    bool done = true;
    switch (step.kind) {
        case FormStep::Kind::Read: Log(form, "read", false); break;
        case FormStep::Kind::Screenshot:
            done = presenter_ != nullptr && presenter_->Screenshot(step.file);
            break;
        case FormStep::Kind::Work: {
            FormUser user(form);
            done = step.work(user);
            break;
        }
    }
    if (!done)
        log_.Add(
            {{"event", "step"}, {"name", form.Name()}, {"step", step.written}, {"refused", true}});
}

void ScriptedShell::Open(const std::string& address)
{
    log_.Add({{"event", "open"}, {"target", address}});
}

void ScriptedShell::Help(const std::string& file)
{
    log_.Add({{"event", "help"}, {"file", file}});
}

void ScriptedPrintJob::Print(const std::string& file)
{
    log_.Add({{"event", "print"}, {"file", file}, {"html", ReadFile(file)}});
}

void ScriptedPointer::Pointer(std::int32_t code)
{
    if (code_ == code)
        return;
    code_ = code;
    log_.Add({{"event", "pointer"}, {"value", code}});
}

}  // namespace clb
