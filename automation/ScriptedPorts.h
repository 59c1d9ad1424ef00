// The ports of a driven program.
#pragma once
#include <string>
#include <vector>

#include "automation/AnswerQueue.h"
#include "automation/EventLog.h"
#include "ports/IFileDialog.h"
#include "ports/IMessageBox.h"
#include "ports/IPointer.h"
#include "ports/IPrintJob.h"
#include "ports/IShell.h"

namespace clb {

class IPresenter;

// Questions are answered from the queue, and every question and everything handed to the desktop is
// logged instead. A question without a fitting answer is cancelled and logged as unanswered. Queue,
// log and presenter are borrowed.

class ScriptedMessageBox : public IMessageBox {
public:
    ScriptedMessageBox(AnswerQueue& answers, EventLog& log) : answers_(answers), log_(log) {}
    BoxAnswer Show(const std::string& text, std::int32_t style, const std::string& title) override;

private:
    AnswerQueue& answers_;
    EventLog& log_;
};

class ScriptedFileDialog : public IFileDialog {
public:
    ScriptedFileDialog(AnswerQueue& answers, EventLog& log) : answers_(answers), log_(log) {}
    std::optional<FileChoice> Ask(const FileQuestion& question) override;

private:
    AnswerQueue& answers_;
    EventLog& log_;
};

/// Works a form step by step until it closes. Cancels it if the steps leave it open.
class ScriptedModalHost : public IModalHost {
public:
    /// presenter: nullptr without a window.
    ScriptedModalHost(AnswerQueue& answers, EventLog& log, IPresenter* presenter)
        : answers_(answers), log_(log), presenter_(presenter)
    {
    }
    void Run(Form& form) override;

private:
    void Work(Form& form, const std::vector<FormStep>& steps);
    void Perform(Form& form, const FormStep& step);
    void Log(const Form& form, const char* moment, bool unanswered);

    AnswerQueue& answers_;
    EventLog& log_;
    IPresenter* presenter_;
};

class ScriptedShell : public IShell {
public:
    explicit ScriptedShell(EventLog& log) : log_(log) {}
    void Open(const std::string& address) override;
    void Help(const std::string& file) override;

private:
    EventLog& log_;
};

/// Logs the text of the document when printing begins.
class ScriptedPrintJob : public IPrintJob {
public:
    explicit ScriptedPrintJob(EventLog& log) : log_(log) {}
    void Print(const std::string& file) override;

private:
    EventLog& log_;
};

/// Logs each change of the pointer.
class ScriptedPointer : public IPointer {
public:
    explicit ScriptedPointer(EventLog& log) : log_(log) {}
    [[nodiscard]] std::int32_t Pointer() const override { return code_; }
    void Pointer(std::int32_t code) override;

private:
    EventLog& log_;
    std::int32_t code_ = pointer::Default;
};

}  // namespace clb
