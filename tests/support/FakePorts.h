// Scripted replacements for everything outside the program.
#pragma once
#include <cstdint>
#include <deque>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "controls/Form.h"
#include "ports/IClock.h"
#include "ports/IFileDialog.h"
#include "ports/IHttpClient.h"
#include "ports/IMessageBox.h"
#include "ports/IPointer.h"
#include "ports/IPrintJob.h"
#include "ports/IShell.h"

namespace clb {

/// Records the boxes. Gives the answers in their order, then OK.
class FakeMessageBox : public IMessageBox {
public:
    struct Box {
        std::string text;
        std::int32_t style = 0;
        std::string title;
        bool operator==(const Box&) const = default;
    };
    BoxAnswer Show(const std::string& text, std::int32_t style, const std::string& title) override
    {
        boxes.push_back({text, style, title});
        if (answers.empty())
            return BoxAnswer::OK;
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<Box> boxes;
    std::deque<BoxAnswer> answers;
};

/// Runs one step on each form, in order. Cancels a form that has no step or is still open after it.
class FakeModalHost : public IModalHost {
public:
    void Run(Form& form) override
    {
        ++shown;
        names.push_back(form.Name());
        if (!steps.empty()) {
            const auto work = steps.front();
            steps.pop_front();
            work(form);
        }
        if (form.Visible())
            form.CancelButton()->Press();
    }

    std::deque<std::function<void(Form&)>> steps;
    int shown = 0;
    std::vector<std::string> names;
};

/// Chooses the answers in their order, then cancels. Chooses all of them at once if several may be
/// chosen.
class FakeFileDialog : public IFileDialog {
public:
    std::optional<FileChoice> Ask(const FileQuestion& question) override
    {
        questions.push_back(question);
        if (answers.empty())
            return std::nullopt;
        FileChoice choice;
        choice.path = answers.front();
        answers.pop_front();
        if (question.several) {
            choice.further.assign(answers.begin(), answers.end());
            answers.clear();
        }
        return choice;
    }

    std::vector<FileQuestion> questions;
    std::deque<std::string> answers;
};

class FakeShell : public IShell {
public:
    void Open(const std::string& address) override { opened.push_back(address); }
    void Help(const std::string& file) override { helped.push_back(file); }

    std::vector<std::string> opened;
    std::vector<std::string> helped;
};

/// Keeps the content of each printed file at the time of printing. Throws if `fails` is set.
class FakePrintJob : public IPrintJob {
public:
    void Print(const std::string& file) override
    {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        files.push_back(file);
        documents.push_back(text.str());
        if (fails)
            throw PortError(errors::FileNotFound, "no printer");
    }

    std::vector<std::string> files;
    std::vector<std::string> documents;
    bool fails = false;
};

class FakePointer : public IPointer {
public:
    [[nodiscard]] std::int32_t Pointer() const override { return code; }
    void Pointer(std::int32_t to) override { code = to; }

    std::int32_t code = pointer::Default;
};

/// Gives the same answer to every request, or throws if `fails` is set.
class FakeHttp : public IHttpClient {
public:
    std::optional<std::string> Get(const std::string& url) override
    {
        urls.push_back(url);
        if (fails)
            throw PortError(errors::NetworkFailure, "no network");
        return answer;
    }

    std::vector<std::string> urls;
    std::optional<std::string> answer;
    bool fails = false;
};

/// Stopped at noon of 15 March 2006, in Greenwich time.
class FakeClock : public IClock {
public:
    [[nodiscard]] Date Now() const override { return now; }
    [[nodiscard]] std::uint32_t TickCount() const override { return ticks; }
    [[nodiscard]] modCommon::ZoneInformation Zone() const override { return zone; }

    Date now = *Date::Of(2006, 3, 15, 12);
    std::uint32_t ticks = 1000;
    modCommon::ZoneInformation zone;
};

}  // namespace clb
