// The ports of a program without a window.
#pragma once
#include <iosfwd>
#include <string>

#include "ports/IFileDialog.h"
#include "ports/IMessageBox.h"
#include "ports/IPointer.h"
#include "ports/IPrintJob.h"
#include "ports/IShell.h"

namespace clb {

/// Writes messages to a stream, at most the first two lines of each (a message may contain a whole
/// file). Answers questions with No.
class ConsoleMessages : public IMessageBox {
public:
    /// Borrows the stream.
    explicit ConsoleMessages(std::ostream& out) : out_(out) {}
    BoxAnswer Show(const std::string& text, std::int32_t style, const std::string& title) override;
    /// Whether a refusal or warning has been reported.
    [[nodiscard]] bool Refused() const { return refused_; }

private:
    std::ostream& out_;
    bool refused_ = false;
};

/// Chooses the same file each time. Cancels as long as no file is set.
class ConsoleFileDialog : public IFileDialog {
public:
    void Choose(const std::string& path) { path_ = path; }
    std::optional<FileChoice> Ask(const FileQuestion& question) override;

private:
    std::string path_;
};

/// Opens nothing: there is no desktop.
class ConsoleShell : public IShell {
public:
    void Open(const std::string&) override {}
    void Help(const std::string&) override {}
};

/// Prints nothing.
class ConsolePrintJob : public IPrintJob {
public:
    void Print(const std::string&) override {}
};

class ConsolePointer : public IPointer {
public:
    [[nodiscard]] std::int32_t Pointer() const override { return code_; }
    void Pointer(std::int32_t code) override { code_ = code; }

private:
    std::int32_t code_ = pointer::Default;
};

}  // namespace clb
