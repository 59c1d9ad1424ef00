// The whole program without a window, for one command.
#pragma once
#include <optional>
#include <string>

#include "app/frmController.h"
#include "cli/ConsolePorts.h"
#include "platform/CurlHttpClient.h"
#include "platform/SystemClock.h"

namespace clb {

/// An account that a command's argument named.
struct FoundAccount {
    std::string id;
    std::string description;
    std::string type;
};

/// The whole program without a window. A command loads it and works its controls as a user would.
/// Messages go to standard error.
class Program {
public:
    /// Loads the program on the folder. The host works the program's forms; it is borrowed and must
    /// outlive the program. trial: the folder is a temporary copy, so no copy is kept of it.
    /// Throws EngineError.
    Program(const std::string& folder, IModalHost& forms, bool trial = false);
    /// Takes back what was written, unless Finish made it durable.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    frmController& Window() { return controller_; }
    ConsoleMessages& Messages() { return messages_; }
    ConsoleFileDialog& Files() { return files_; }
    [[nodiscard]] Month PresentMonth() const;

    /// Makes what was written durable and unloads the program. Each command does this last, before
    /// it prints what it did. Throws EngineError if that fails, and Interrupted if the program was
    /// asked to end; nothing is kept then.
    void Finish();

    /// Chooses the month that the next PressNode or PressAccount shows.
    void ChooseMonth(Month month);
    /// Presses the tree's node with the tag. Throws RuntimeError if there is none.
    void PressNode(const std::string& tag);
    /// Shows the account's register, holdings or loans.
    void PressAccount(const FoundAccount& account);
    /// Runs the command of a menu item. Throws RuntimeError (InvalidCall) if it is disabled.
    void Press(const std::string& item);

private:
    SystemClock clock_;
    ConsoleMessages messages_;
    ConsoleFileDialog files_;
    ConsoleShell shell_;
    ConsolePrintJob printing_;
    ConsolePointer pointer_;
    FixedForm dates_;
    CurlHttpClient http_;
    frmController controller_;
};

/// Cancels every form.
class NoForms : public IModalHost {
public:
    void Run(Form& form) override;
};

/// Finds an account by its number or, if there is no such number, by its description. Throws
/// RuntimeError (ElementNotFound) if there is none.
[[nodiscard]] FoundAccount FindAccount(clsDatabase& data, const std::string& account);

}  // namespace clb
