#include "app/QuoteHost.h"

#include "app/frmController.h"
#include "base/Interruption.h"

namespace clb {

std::string QuoteHost::StatusText() const
{
    return window_.statusBar.Panel(1);
}

void QuoteHost::StatusText(const std::string& text)
{
    window_.statusBar.Panel(1, text);
}

void QuoteHost::Repaint()
{
    window_.window.Refresh();
}

void QuoteHost::Pointer(std::int32_t code)
{
    window_.GivenPorts().pointer.Pointer(code);
}

void QuoteHost::QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol)
{
    window_.progress.Step(part, whole, symbol);
    Interruption::Check();
}

}  // namespace clb
