// The main window as the command Update Quotes uses it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "quotes/UpdateQuotes.h"

namespace clb {

class frmController;

class QuoteHost : public IQuoteHost {
public:
    /// Borrows the window, which outlives it.
    explicit QuoteHost(frmController& window) : window_(window) {}

    [[nodiscard]] std::string StatusText() const override;
    void StatusText(const std::string& text) override;
    void Repaint() override;
    void Pointer(std::int32_t code) override;
    /// Shows the progress. Throws Interrupted if the program was asked to end.
    void QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol) override;

private:
    frmController& window_;
};

}  // namespace clb
