// How the pages of the manual look in the program's own window.
#pragma once
#include <QByteArray>
#include <QString>

class QPalette;
class QFont;

namespace clb::help_style {

/// The style sheet of the pages in the colours of a palette. All sizes of text follow the ordinary
/// one.
[[nodiscard]] QString Sheet(const QPalette& palette, const QFont& font);
/// The part of a page that is read: without its list of contents, which has a place of its own in
/// the window, and without its style sheet for browsers.
[[nodiscard]] QString Body(const QByteArray& page);

}  // namespace clb::help_style
