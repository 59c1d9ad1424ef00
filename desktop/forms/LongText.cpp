#include "desktop/forms/LongText.h"

#include <algorithm>
#include <utility>

namespace clb {

LongText::LongText(QString text) : text_(std::move(text))
{
    wide_ = std::any_of(text_.utf16(), text_.utf16() + text_.size(),
                        [](ushort character) { return character >= 0x1100; });
}

qsizetype LongText::LineLength(qsizetype start, qsizetype& next) const
{
    const QStringView rest = QStringView(text_).sliced(start);
    const qsizetype most = std::min<qsizetype>(columns_, rest.size());
    const qsizetype lineEnd = rest.first(most).indexOf(u'\n');
    qsizetype length = lineEnd < 0 ? most : lineEnd;
    if (lineEnd < 0 && length < rest.size() && length > 1 && rest[length].isLowSurrogate())
        --length;
    next = start + length;
    // If a line exactly fills a screen line, its line end belongs to the same screen line.
    if (next < text_.size() && text_[next] == u'\r')
        ++next;
    if (next < text_.size() && text_[next] == u'\n')
        ++next;
    return length;
}

void LongText::Wrap(int columns)
{
    if (std::exchange(columns_, std::max(2, columns)) == columns_)
        return;
    places_.clear();
    count_ = 0;
    qsizetype next = 0;
    for (qsizetype start = 0; start < text_.size(); start = next) {
        if (count_ % kStep == 0)
            places_.push_back(start);
        LineLength(start, next);
        ++count_;
    }
}

QStringView LongText::Line(qsizetype number) const
{
    if (number < 0 || number >= count_)
        return {};
    qsizetype start = places_[static_cast<std::size_t>(number / kStep)];
    qsizetype next = start;
    qsizetype length = LineLength(start, next);
    for (qsizetype left = number % kStep; left > 0; --left) {
        start = next;
        length = LineLength(start, next);
    }
    return QStringView(text_).sliced(start, length);
}

}  // namespace clb
