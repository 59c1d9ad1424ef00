// Texts that screen readers read as soon as they come up.
#pragma once
#include <QString>

class QWidget;

namespace clb {

/// Makes screen readers read a text now, whichever part of the window has the focus. The text
/// belongs to a visible part. Does nothing while no screen reader is running.
void Announce(QWidget& part, const QString& text);
/// Names a part. Readers are told only of another name than before.
void NamePart(QWidget& part, const QString& name);

}  // namespace clb
