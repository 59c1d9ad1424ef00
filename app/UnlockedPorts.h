// Ports that give up the lock on the book before they wait.
#pragma once
#include <functional>

#include "app/Ports.h"

namespace clb {

/// Wraps the ports that wait for a person or a server. Each calls `release` first, so that the book
/// is not locked while the program waits.
class UnlockedPorts {
public:
    /// Borrows the ports, which outlive it. If release throws, the port is not called.
    UnlockedPorts(const Ports& ports, std::function<void()> release);
    UnlockedPorts(const UnlockedPorts&) = delete;
    UnlockedPorts& operator=(const UnlockedPorts&) = delete;
    /// Returns the ports with message box, file dialog, modal host, printing and network replaced
    /// by the wrapping ones. This object must outlive them.
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
