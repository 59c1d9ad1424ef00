#pragma once
#include "app/frmController.h"
#include "cli/ConsolePorts.h"
#include "platform/CurlHttpClient.h"
#include "platform/SystemClock.h"

#include <optional>
#include <string>

namespace clb {

/// An account as a command's words named it.
struct FoundAccount {
    std::string id;
    std::string description;
    std::string type;
};

/// The whole program without a window, loaded for one command: the command works its controls as a
/// user would. Messages go to standard error.
class Program {
public:
    /// Loads the program on the folder; forms are shown to the host, which is borrowed and outlives
    /// it. trial: the folder is a copy that goes again, so nothing of it is kept. Throws
    /// EngineError.
    Program(const std::string& folder, IModalHost& forms, bool trial = false);
    /// Takes back what was written, when Finish did not make it durable.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    frmController& Window() { return controller_; }
    ConsoleMessages& Messages() { return messages_; }
    ConsoleFileDialog& Files() { return files_; }
    Month PresentMonth() const;

    /// Makes durable what was written and unloads it: each command's last step, before it says what
    /// it did. Throws EngineError when that fails, and Interrupted when the program was told to
    /// end; nothing is kept then.
    void Finish();

    /// Chooses the month to show, without showing it yet.
    void ChooseMonth(Month month);
    /// Presses the tree's node with the tag. Throws RuntimeError when there is none.
    void PressNode(const std::string& tag);
    /// Shows the account's register, holdings or loans.
    void PressAccount(const FoundAccount& account);
    /// Runs a menu's command. Throws RuntimeError (InvalidCall) when it is disabled.
    void Press(const std::string& item);

private:
    SystemClock clock_;
    ConsoleMessages messages_;
    ConsoleFileDialog files_;
    ConsoleShell shell_;
    ConsolePrintJob printing_;
    ConsolePointer pointer_;
    IsoDateForm dates_;
    CurlHttpClient http_;
    frmController controller_;
};

/// Closes every form as by its Cancel button.
class NoForms : public IModalHost {
public:
    void Run(Form& form) override;
};

/// By number or, failing that, by description. Throws RuntimeError (ElementNotFound) when there is
/// none.
FoundAccount FindAccount(clsDatabase& data, const std::string& account);

}  // namespace clb
