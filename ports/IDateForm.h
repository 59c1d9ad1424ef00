#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Date.h"

namespace clb {

/// The form in which grid cells show and take dates.
class IDateForm {
public:
    virtual ~IDateForm() = default;
    virtual std::string Format(const Date& date) const = 0;
    /// Takes the form of Format and always yyyy-mm-dd; nothing for other texts.
    virtual std::optional<Date> Read(std::string_view text) const = 0;
};

/// Dates as yyyy-mm-dd.
class IsoDateForm : public IDateForm {
public:
    std::string Format(const Date& date) const override { return date.ToIso(); }
    std::optional<Date> Read(std::string_view text) const override { return Date::FromIso(text); }
};

}  // namespace clb
