// Converts texts between the models and the toolkit.
#pragma once
#include <QString>
#include <string>
#include <string_view>

namespace clb {

/// The models use UTF-8, the toolkit UTF-16.
inline QString ToQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text)
{
    return text.toStdString();
}

}  // namespace clb
