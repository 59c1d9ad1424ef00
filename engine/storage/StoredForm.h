// How values are kept in the storage.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <variant>

#include "base/Overloaded.h"
#include "base/Value.h"

namespace clb {

/// Hands the value to `take` in the form in which the storage keeps it, and returns what `take`
/// returns: Null; std::int64_t for a whole number, the scaled number of an amount, and 1 or 0 for a
/// boolean; double or float; const std::string& for a text, the value's own; std::string&& for a
/// date in its ISO form, a temporary.
template <typename Take>
decltype(auto) WithStoredForm(const Value& value, Take&& take)
{
    return std::visit(Overloaded{
                          [&](Null null) { return take(null); },
                          [&](const std::string& text) { return take(text); },
                          [&](std::int32_t number) { return take(std::int64_t{number}); },
                          [&](Money money) { return take(money.Scaled()); },
                          [&](double number) { return take(number); },
                          [&](float number) { return take(number); },
                          [&](const Date& date) { return take(date.ToIso()); },
                          [&](bool yes) { return take(std::int64_t{yes ? 1 : 0}); },
                      },
                      value);
}

}  // namespace clb
