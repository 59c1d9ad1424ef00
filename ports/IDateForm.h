// How dates are written for the user, and dates and amounts read from the user.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "typed/TypedAmount.h"
#include "typed/TypedDate.h"

namespace clb {

/// The format in which grid cells show dates, and the habits by which they take dates and amounts.
class IDateForm {
public:
    virtual ~IDateForm() = default;
    [[nodiscard]] virtual std::string Format(const Date& date) const = 0;
    /// Reads a date in the format of Format or as yyyy-mm-dd. Returns nothing for any other text.
    [[nodiscard]] virtual std::optional<Date> Read(std::string_view text) const = 0;
    [[nodiscard]] virtual const DateHabits& Dates() const = 0;
    [[nodiscard]] virtual const AmountHabits& Amounts() const = 0;
    /// Whether cells take dates and amounts as people type them. Otherwise they take dates that
    /// Read takes, and numbers by the fixed rule (see Numeric.h).
    [[nodiscard]] virtual bool TakesTyped() const { return true; }
};

/// Dates as yyyy-mm-dd. Typed ones may have the month before the day; amounts have a point.
class IsoDateForm : public IDateForm {
public:
    [[nodiscard]] std::string Format(const Date& date) const override { return date.ToIso(); }
    [[nodiscard]] std::optional<Date> Read(std::string_view text) const override
    {
        return Date::FromIso(text);
    }
    [[nodiscard]] const DateHabits& Dates() const override { return dates_; }
    [[nodiscard]] const AmountHabits& Amounts() const override { return amounts_; }

private:
    DateHabits dates_;
    AmountHabits amounts_;
};

/// Only dates as yyyy-mm-dd and numbers by the fixed rule, for programs that work the window.
class FixedForm : public IsoDateForm {
public:
    [[nodiscard]] bool TakesTyped() const override { return false; }
};

}  // namespace clb
