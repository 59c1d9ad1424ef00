// Follows the desktop when its colours change.
#pragma once
#include <QObject>

namespace clb {

/// Updates the colours of tips, links and selections when the desktop's colours change, so that
/// they are legible. Lives as long as the application.
class Appearance : public QObject {
public:
    Appearance();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow();

    bool following_ = false;
};

}  // namespace clb
