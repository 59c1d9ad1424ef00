// Shows an address that could not be opened.
#pragma once
#include <QDialog>

class QLineEdit;

namespace clb {

/// Says why an address was not opened, and shows it so that it can be copied.
class AddressBox : public QDialog {
public:
    AddressBox(const QString& why, const QString& address, QWidget* parent);

    [[nodiscard]] QString Why() const { return why_; }
    /// Puts the address on the clipboard.
    void Copy();

private:
    QString why_;
    QLineEdit* line_;
};

}  // namespace clb
