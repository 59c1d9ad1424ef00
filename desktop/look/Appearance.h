#pragma once
#include <QObject>

namespace clb {

/// Keeps to the desktop's colours what the toolkit would leave behind when they change: tips,
/// links. Lives as long as the application.
class Appearance : public QObject {
public:
    Appearance();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow();

    bool following_ = false;
};

}  // namespace clb
