// The dates of one file, with the order of day, month and year that the whole of it settles.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "statements/form/DateTexts.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// Settles the order of the dates of a file and reads them.
class FileDates {
public:
    /// Takes a date that is going to be read, in the order of the file.
    void Add(std::string_view text);
    /// The question that remains under an answer, or nothing. The preferred order is proposed if it
    /// is possible.
    [[nodiscard]] std::optional<OpenQuestion> Open(std::optional<DateText::Order> answer,
                                                   DateText::Order preferred) const;
    /// The order to read with: the answer; without one, the file's, or the proposed one if that is
    /// open.
    [[nodiscard]] DateText::Order Settled(std::optional<DateText::Order> answer,
                                          DateText::Order preferred) const;

    /// How the first date is written: "9/9/9" for "12/31/2024". Empty if there is none.
    [[nodiscard]] std::string Pattern() const;

private:
    [[nodiscard]] std::vector<DateText::Order> Options() const;

    DateOrders orders_;
    std::size_t added_ = 0;
    std::string first_;
};

/// The key of an order: "dmy", "mdy" or "ymd".
[[nodiscard]] std::string KeyOf(DateText::Order order);

}  // namespace clb
