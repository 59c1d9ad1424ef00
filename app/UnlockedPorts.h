#pragma once
#include <functional>

#include "app/Ports.h"

namespace clb {

/// The ports that wait for a person or a server, made so that the book is never locked meanwhile:
/// each calls `release` before it asks.
class UnlockedPorts {
public:
    /// The ports are borrowed and outlive this. release may throw; then nothing is asked.
    UnlockedPorts(const Ports& ports, std::function<void()> release);
    UnlockedPorts(const UnlockedPorts&) = delete;
    UnlockedPorts& operator=(const UnlockedPorts&) = delete;
    /// The ports given, with these in place of message box, file dialog, modal host, printing and
    /// network. This outlives them.
    Ports Around(const Ports& ports);

private:
    struct Messages : IMessageBox {
        Messages(IMessageBox& box, const std::function<void()>& before)
            : inner(box), release(before)
        {
        }
        BoxAnswer Show(const std::string& text, std::int32_t style,
                       const std::string& title) override;
        IMessageBox& inner;
        const std::function<void()>& release;
    };
    struct Files : IFileDialog {
        Files(IFileDialog& dialogs, const std::function<void()>& before)
            : inner(dialogs), release(before)
        {
        }
        std::optional<FileChoice> Ask(const FileQuestion& question) override;
        IFileDialog& inner;
        const std::function<void()>& release;
    };
    struct Forms : IModalHost {
        Forms(IModalHost& host, const std::function<void()>& before) : inner(host), release(before)
        {
        }
        void Run(Form& form) override;
        IModalHost& inner;
        const std::function<void()>& release;
    };
    struct Printing : IPrintJob {
        Printing(IPrintJob& job, const std::function<void()>& before) : inner(job), release(before)
        {
        }
        void Print(const std::string& file) override;
        IPrintJob& inner;
        const std::function<void()>& release;
    };
    struct Network : IHttpClient {
        Network(IHttpClient& client, const std::function<void()>& before)
            : inner(client), release(before)
        {
        }
        std::optional<std::string> Get(const std::string& url) override;
        IHttpClient& inner;
        const std::function<void()>& release;
    };

    std::function<void()> release_;
    Messages messages_;
    Files files_;
    Forms forms_;
    Printing printing_;
    Network network_;
};

}  // namespace clb
