#include "desktop/ports/AddressBox.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

#include "base/Product.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TitleRoom.h"
#include "ports/IMessageBox.h"

namespace clb {

namespace {

constexpr int kMostCharacters = 72;

}  // namespace

AddressBox::AddressBox(const QString& why, const QString& address, QWidget* parent)
    : QDialog(parent), why_(why), line_(new QLineEdit(address, this))
{
    setObjectName(QStringLiteral("AddressBox"));
    setWindowTitle(QLatin1String(product::kTitle));
    auto* picture = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    picture->setPixmap(
        icons::Message(box_style::Information).pixmap(QSize(side, side), devicePixelRatioF()));
    auto* text = new QLabel(why_, this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    line_->setReadOnly(true);
    line_->setAccessibleName(QStringLiteral("Address"));
    line_->setAccessibleDescription(why_);
    line_->setMinimumWidth(fontMetrics().averageCharWidth() *
                           std::clamp(static_cast<int>(address.size()) + 4, 40, kMostCharacters));
    line_->setCursorPosition(0);
    auto* row = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    QPushButton* copy =
        row->addButton(QStringLiteral("&Copy Address"), QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
    connect(row, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* all = new QGridLayout(this);
    all->setHorizontalSpacing(12);
    all->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    all->addWidget(text, 0, 1);
    all->addWidget(line_, 1, 1);
    all->addWidget(row, 2, 0, 1, 2);
    MakeRoomForTitle(*this);
    line_->setFocus();
    line_->selectAll();
}

void AddressBox::Copy()
{
    QGuiApplication::clipboard()->setText(line_->text());
}

}  // namespace clb
