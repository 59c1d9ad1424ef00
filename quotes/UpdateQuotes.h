#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "ports/IMessageBox.h"

namespace clb {

class clsDatabase;
class IHttpClient;

/// The main window, as the quotes see it.
class IQuoteHost {
public:
    virtual ~IQuoteHost() = default;
    /// First panel of the status bar.
    [[nodiscard]] virtual std::string StatusText() const = 0;
    virtual void StatusText(const std::string& text) = 0;
    /// Draws at once what has changed: the requests leave no time for it.
    virtual void Repaint() = 0;
    virtual void Pointer(std::int32_t code) = 0;
    /// The symbol is asked for; so many of the whole were asked for before.
    virtual void QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol) = 0;
};

/// The command Update Quotes: fetches one quote for each holding and stores its last price. A
/// holding without a proper quote keeps its price. A failure is told to the user and ends the
/// command; prices stored before stay, status text and pointer are put back.
void UpdateQuotes(clsDatabase& database, IQuoteHost& host, IMessageBox& messages, IHttpClient& http,
                  const std::string& service, const std::string& title);

}  // namespace clb
