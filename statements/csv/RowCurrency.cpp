#include "statements/csv/RowCurrency.h"

#include "statements/form/AmountText.h"
#include "statements/form/CurrencyMarks.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

constexpr std::size_t kMostCurrencies = 20;

}  // namespace

std::string_view CurrencyMarkOf(const CsvColumns& columns, const AmountSource& source,
                                const CsvRecord& record)
{
    if (columns.currency)
        return record.Field(*columns.currency);
    for (const auto& column : {source.amount, source.in, source.out}) {
        const std::string_view cell = column ? record.Field(*column) : std::string_view();
        const auto point = ReadWrittenAmount(cell, '.');
        const auto written = point ? point : ReadWrittenAmount(cell, ',');
        if (written && !written->currency.empty())
            return written->currency;
    }
    return {};
}

void FileCurrencies::Add(std::string_view mark)
{
    if (mark == last_ || mark.empty() || marks_.size() >= kMostCurrencies || !IsCurrencyMark(mark))
        return;
    last_ = mark;
    marks_.insert(last_);
}

std::set<std::string> FileCurrencies::Different() const
{
    std::set<std::string> different;
    for (const std::string& mark : marks_)
        different.insert(CurrencyAmongOthers(mark));
    if (different.size() == 1)
        different = {CurrencyOf(*marks_.begin())};
    different.erase("");
    return different;
}

std::string CurrencyAmongOthers(std::string_view mark)
{
    std::string code = CurrencyOf(mark);
    if (!code.empty() || !IsCurrencyMark(mark))
        return code;
    return mark == "$" ? "USD" : std::string(mark);
}

std::string CurrencyInName(std::string_view name)
{
    const auto isLetter = [name](std::size_t at) {
        return at < name.size() && IsAsciiLetter(static_cast<unsigned char>(name[at]));
    };
    for (std::size_t i = 0; i + 3 <= name.size(); ++i)
        if (!isLetter(i + 3) && (i == 0 || !isLetter(i - 1)) && IsCurrencyCode(name.substr(i, 3)))
            return CurrencyOf(name.substr(i, 3));
    return {};
}

}  // namespace clb
