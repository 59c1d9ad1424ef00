// Cuts a text of any size into screen lines.
#pragma once
#include <QString>
#include <vector>

namespace clb {

/// A text of any size, cut into screen lines of a fixed number of characters. It remembers where
/// every 256th line starts and finds the others from there.
class LongText {
public:
    explicit LongText(QString text);

    [[nodiscard]] const QString& Text() const { return text_; }
    /// Cuts the text into lines of this many characters. A longer line continues on the next screen
    /// line. There are no screen lines before the first call.
    void Wrap(int columns);
    [[nodiscard]] qsizetype LineCount() const { return count_; }
    /// A screen line, from 0, without its line end.
    [[nodiscard]] QStringView Line(qsizetype number) const;
    /// Whether some characters are wider than one column of a fixed font.
    [[nodiscard]] bool HasWideCharacters() const { return wide_; }

private:
    qsizetype LineLength(qsizetype start, qsizetype& next) const;

    static constexpr qsizetype kStep = 256;  // screen lines from one remembered place to the next
    QString text_;
    bool wide_ = false;
    int columns_ = 0;
    qsizetype count_ = 0;
    std::vector<qsizetype> places_;
};

}  // namespace clb
