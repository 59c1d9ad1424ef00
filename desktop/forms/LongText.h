#pragma once
#include <QString>
#include <vector>

namespace clb {

/// A text of any size cut into screen lines of a fixed number of characters. Nothing is laid out:
/// only the places of some lines are remembered, the others are found from the nearest of them.
class LongText {
public:
    explicit LongText(QString text);

    [[nodiscard]] const QString& Text() const { return text_; }
    /// Cuts the text; a line longer than this continues on the next screen lines. Before the first
    /// call there are no screen lines.
    void Wrap(int columns);
    [[nodiscard]] qsizetype LineCount() const { return count_; }
    /// A screen line, from 0, without its line end.
    [[nodiscard]] QStringView Line(qsizetype number) const;
    /// Whether some characters are wider than others of a fixed font.
    [[nodiscard]] bool HasWideCharacters() const { return wide_; }

private:
    qsizetype LineLength(qsizetype start, qsizetype& next) const;

    static constexpr qsizetype Step = 256;  // screen lines from one remembered place to the next
    QString text_;
    bool wide_ = false;
    int columns_ = 0;
    qsizetype count_ = 0;
    std::vector<qsizetype> places_;
};

}  // namespace clb
