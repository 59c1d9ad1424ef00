// How dates are written for the user and read from the user.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Date.h"

namespace clb {

/// The format in which grid cells show and take dates.
class IDateForm {
public:
    virtual ~IDateForm() = default;
    [[nodiscard]] virtual std::string Format(const Date& date) const = 0;
    /// Reads a date in the format of Format or as yyyy-mm-dd. Returns nothing for any other text.
    [[nodiscard]] virtual std::optional<Date> Read(std::string_view text) const = 0;
};

/// Dates as yyyy-mm-dd.
class IsoDateForm : public IDateForm {
public:
    [[nodiscard]] std::string Format(const Date& date) const override { return date.ToIso(); }
    [[nodiscard]] std::optional<Date> Read(std::string_view text) const override
    {
        return Date::FromIso(text);
    }
};

}  // namespace clb
