#include "desktop/ports/MessageBoxPort.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/forms/LongTextView.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/PointerPort.h"

namespace clb {

namespace {

constexpr std::size_t kMostBoxCharacters = 1200;
constexpr std::ptrdiff_t kMostBoxLines = 20;

QPixmap IconOf(std::int32_t style, const QWidget& box)
{
    const int size = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    return icons::Message(style).pixmap(QSize(size, size), box.devicePixelRatioF());
}

QMessageBox::StandardButtons ButtonsOf(std::int32_t style)
{
    return box_style::Buttons(style) == box_style::YesNo ? QMessageBox::Yes | QMessageBox::No
                                                         : QMessageBox::Ok;
}

BoxAnswer AnswerOf(int button)
{
    switch (button) {
        case QMessageBox::Yes: return BoxAnswer::Yes;
        case QMessageBox::No: return BoxAnswer::No;
        case QMessageBox::Cancel: return BoxAnswer::Cancel;
        default: return BoxAnswer::OK;
    }
}

/// Some desktops put pictures on the buttons of boxes, which the program's dialogs do not have.
void RemovePictures(const QList<QAbstractButton*>& buttons)
{
    for (QAbstractButton* button : buttons)
        button->setIcon(QIcon());
}

}  // namespace

bool MessageBoxPort::FitsBox(const std::string& text)
{
    return text.size() <= kMostBoxCharacters &&
           std::count(text.begin(), text.end(), '\n') < kMostBoxLines;
}

std::unique_ptr<QDialog> MessageBoxPort::Build(const std::string& text, std::int32_t style,
                                               const std::string& title)
{
    std::unique_ptr<QDialog> box;
    if (FitsBox(text)) {
        auto plain = std::make_unique<QMessageBox>(QMessageBox::NoIcon, QString(), ToQString(text),
                                                   ButtonsOf(style), DialogParent());
        plain->setIconPixmap(IconOf(style, *plain));
        plain->setTextFormat(Qt::PlainText);
        RemovePictures(plain->buttons());
        box = std::move(plain);
    } else {
        box = std::make_unique<LongMessageBox>(ToQString(text), style);
    }
    box->setWindowTitle(ToQString(title));
    MakeRoomForTitle(*box);
    return box;
}

BoxAnswer MessageBoxPort::Show(const std::string& text, std::int32_t style,
                               const std::string& title)
{
    const PlainPointer pointer;
    const int button = Build(text, style, title)->exec();
    if (button == QDialog::Rejected)
        return box_style::Buttons(style) == box_style::YesNo ? BoxAnswer::No : BoxAnswer::OK;
    return AnswerOf(button);
}

LongMessageBox::LongMessageBox(const QString& text, std::int32_t style)
    : QDialog(DialogParent()), view_(new LongTextView(text, this))
{
    auto* picture = new QLabel(this);
    picture->setPixmap(IconOf(style, *this));
    auto* content = new QHBoxLayout;
    content->setSpacing(12);
    content->addWidget(picture, 0, Qt::AlignTop);
    content->addWidget(view_, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(content, 1);
    all->addWidget(ButtonRow(style));
    const QSize room = screen()->availableSize();
    resize(std::min(760, room.width() * 9 / 10), std::min(480, room.height() * 8 / 10));
}

QWidget* LongMessageBox::ButtonRow(std::int32_t style)
{
    const QMessageBox::StandardButtons buttons = ButtonsOf(style);
    auto* row =
        new QDialogButtonBox(QDialogButtonBox::StandardButtons(static_cast<int>(buttons)), this);
    RemovePictures(row->buttons());
    QPushButton* copy = row->addButton(QStringLiteral("&Copy"), QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this, [this] { view_->Copy(); });
    connect(row, &QDialogButtonBox::clicked, this, [this, row, copy](QAbstractButton* pressed) {
        if (pressed != copy)
            done(static_cast<int>(row->standardButton(pressed)));
    });
    QPushButton* first = row->button(buttons.testFlag(QMessageBox::Yes) ? QDialogButtonBox::Yes
                                                                        : QDialogButtonBox::Ok);
    first->setDefault(true);
    first->setFocus();
    return row;
}

}  // namespace clb
