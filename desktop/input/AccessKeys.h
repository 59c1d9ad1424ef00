#pragma once
#include <QSet>
#include <QString>
#include <map>
#include <string>

namespace clb {

/// Gives the captions of one dialog the letters that reach them with Alt, no letter twice: the
/// first of a word where one is free, else any.
class AccessKeys {
public:
    /// The caption of a control as the toolkit takes it, with "&" before its letter. A control
    /// keeps its letter as long as its caption has it.
    QString Mark(const std::string& control, const QString& caption);

private:
    [[nodiscard]] qsizetype Choose(const QString& caption) const;

    std::map<std::string, QChar> letters_;
    QSet<QChar> taken_;
};

}  // namespace clb
