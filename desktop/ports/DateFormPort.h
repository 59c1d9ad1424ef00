// Dates in the locale's form.
#pragma once
#include <QLocale>
#include <QString>

#include "ports/IDateForm.h"

namespace clb {

/// Reads and writes dates in the short form of a locale, always with a year of four digits. It
/// reads yyyy-mm-dd in any locale.
class DateFormPort : public IDateForm {
public:
    explicit DateFormPort(const QLocale& locale = QLocale::system());

    [[nodiscard]] std::string Format(const Date& date) const override;
    [[nodiscard]] std::optional<Date> Read(std::string_view text) const override;

private:
    QLocale locale_;
    QString form_;
};

}  // namespace clb
