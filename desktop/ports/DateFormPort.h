// Dates in the locale's form.
#pragma once
#include <QLocale>
#include <QString>

#include "ports/IDateForm.h"

namespace clb {

/// Reads and writes dates in the short form of a locale, always with a year of four digits. It
/// reads yyyy-mm-dd in any locale. Typed dates and amounts follow the locale's habits.
class DateFormPort : public IDateForm {
public:
    explicit DateFormPort(const QLocale& locale = QLocale::system());

    [[nodiscard]] std::string Format(const Date& date) const override;
    [[nodiscard]] std::optional<Date> Read(std::string_view text) const override;
    [[nodiscard]] const DateHabits& Dates() const override { return dates_; }
    [[nodiscard]] const AmountHabits& Amounts() const override { return amounts_; }

private:
    QLocale locale_;
    QString form_;
    DateHabits dates_;
    AmountHabits amounts_;
};

}  // namespace clb
