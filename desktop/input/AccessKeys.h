// The letters that reach the controls of a dialog with Alt.
#pragma once
#include <QSet>
#include <QString>
#include <map>
#include <string>

namespace clb {

/// Gives each caption of a dialog a letter that reaches it with Alt. No letter is used twice. The
/// first letters of words are preferred.
class AccessKeys {
public:
    /// The control's caption with "&" before its letter, as the toolkit expects it. A control keeps
    /// its letter for as long as its caption contains it.
    QString Mark(const std::string& control, const QString& caption);

private:
    [[nodiscard]] qsizetype Choose(const QString& caption) const;

    std::map<std::string, QChar> letters_;
    QSet<QChar> taken_;
};

}  // namespace clb
