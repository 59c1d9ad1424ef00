// Room for the titles of dialogs.
#pragma once

class QDialog;

namespace clb {

/// The width in pixels of a window whose title bar shows the whole of its title. The desktop draws
/// that bar, so its buttons are estimated generously. At most the width of the screen.
[[nodiscard]] int TitleWidth(const QDialog& dialog);
/// Makes a dialog whose layout is a grid or a vertical box no narrower than its title needs. To be
/// called after its layout and its title were set, and again after another title was set.
void MakeRoomForTitle(QDialog& dialog);

}  // namespace clb
