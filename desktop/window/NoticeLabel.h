// Shows the notices in the status bar.
#pragma once
#include <sigc++/trackable.h>

#include <QLabel>

namespace clb {

class Notices;
class WorkProgress;

/// The second panel of the status bar while no long command runs. It shows the notices in one line,
/// cut if there is no room. The tooltip and screen readers have the whole text.
class NoticeLabel : public QLabel, public sigc::trackable {
public:
    /// The models are borrowed and outlive the label.
    NoticeLabel(Notices& notices, WorkProgress& progress, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();
    /// The whole text in one line.
    [[nodiscard]] QString Line() const;
    /// Width of the picture and the space after it.
    [[nodiscard]] int PictureWidth() const;

    Notices& notices_;
    WorkProgress& progress_;
};

}  // namespace clb
