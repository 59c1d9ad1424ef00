#include "app/UnlockedPorts.h"

#include <utility>

namespace clb {

UnlockedPorts::UnlockedPorts(const Ports& ports, std::function<void()> release)
    : release_(std::move(release)),
      messages_(ports.messages, release_),
      files_(ports.files, release_),
      forms_(ports.modal, release_),
      printing_(ports.printing, release_),
      network_(ports.http, release_)
{
}

Ports UnlockedPorts::Around(const Ports& ports)
{
    return {ports.folder,       ports.clock,
            messages_,          files_,
            ports.shell,        ports.pointer,
            ports.dates,        forms_,
            printing_,          network_,
            ports.quoteService, ports.keepsCopies,
            ports.showsResults, ports.importsEveryKind};
}

BoxAnswer UnlockedPorts::Messages::Show(const std::string& text, std::int32_t style,
                                        const std::string& title)
{
    release();
    return inner.Show(text, style, title);
}

std::optional<FileChoice> UnlockedPorts::Files::Ask(const FileQuestion& question)
{
    release();
    return inner.Ask(question);
}

void UnlockedPorts::Forms::Run(Form& form)
{
    release();
    inner.Run(form);
}

void UnlockedPorts::Printing::Print(const std::string& file)
{
    release();
    inner.Print(file);
}

std::optional<std::string> UnlockedPorts::Network::Get(const std::string& url)
{
    release();
    return inner.Get(url);
}

}  // namespace clb
