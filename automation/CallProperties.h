// Operations that read and write properties by name.
#pragma once
#include <string>

#include "app/frmController.h"
#include "json/ValueJson.h"

namespace clb {

// Each throws RequestError if there is no such property or the value does not fit it.

void SetViewProperty(clsView& view, const std::string& property, const Value& value);
Json ViewProperty(clsView& view, const std::string& property);

/// Asks for a file with a dialog of the given properties; kind is "open" or "save". Returns
/// "chosen" and the dialog's properties after it.
Json AskForFile(frmController& controller, const std::string& kind, const Json& properties);
/// The text as a file dialog's Filter returns it.
std::string FilterReadBack(frmController& controller, const std::string& filter);

/// All properties of a stock's quote.
Json QuoteProperties(frmController& controller, const std::string& symbol);

}  // namespace clb
