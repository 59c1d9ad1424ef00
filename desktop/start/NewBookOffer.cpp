#include "desktop/start/NewBookOffer.h"

#include <QPushButton>
#include <QStyle>
#include <filesystem>

#include "base/Product.h"
#include "data/EmptyDatabase.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"
#include "desktop/look/TitleRoom.h"
#include "desktop/ports/DialogParent.h"
#include "desktop/ports/MessageBoxPort.h"
#include "platform/ProgramFolder.h"

namespace clb {

std::unique_ptr<QMessageBox> BuildNewBookOffer(const std::string& folder)
{
    auto box = std::make_unique<QMessageBox>(DialogParent());
    const int size = box->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    box->setWindowTitle(ToQString(product::kTitle));
    box->setIconPixmap(
        icons::Message(box_style::Question).pixmap(QSize(size, size), box->devicePixelRatioF()));
    box->setTextFormat(Qt::PlainText);
    box->setText(
        QStringLiteral("There is no book in the folder\n%1")
            .arg(ToQString(std::filesystem::absolute(folder).lexically_normal().string())));
    QPushButton* make =
        box->addButton(QStringLiteral("&Make a new book here"), QMessageBox::AcceptRole);
    make->setObjectName(QStringLiteral("make"));
    QPushButton* quit = box->addButton(QStringLiteral("&Quit"), QMessageBox::RejectRole);
    quit->setObjectName(QStringLiteral("quit"));
    box->setDefaultButton(make);
    box->setEscapeButton(quit);
    MakeRoomForTitle(*box);
    return box;
}

bool OfferNewBook(const std::string& folder)
{
    const auto box = BuildNewBookOffer(folder);
    box->exec();
    if (box->clickedButton()->objectName() != QStringLiteral("make"))
        return false;
    DeliverFolder(folder, EmptyDatabase());
    return true;
}

}  // namespace clb
