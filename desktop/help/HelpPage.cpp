#include "desktop/help/HelpPage.h"

#include <QAccessible>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>
#include <utility>

#include "desktop/help/HelpStyle.h"

namespace clb {

namespace {

constexpr int kMostCharacters = 120;  // of a line
constexpr int kMargin = 20;

QByteArray BytesOf(const QUrl& file)
{
    QFile page(file.toLocalFile());
    return page.open(QIODevice::ReadOnly) ? page.readAll() : QByteArray();
}

QString Unreadable(const QUrl& page)
{
    return QStringLiteral("<h1>This page cannot be read</h1><p>%1</p>")
        .arg(page.toLocalFile().toHtmlEscaped());
}

}  // namespace

HelpPage::HelpPage(OpenAddress open, QWidget* parent) : QTextBrowser(parent), open_(std::move(open))
{
    setObjectName(QStringLiteral("HelpPage"));
    setAccessibleName(QStringLiteral("Page"));
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    // The lines do not move when a longer page needs the bar.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    document()->setDocumentMargin(0);
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Follow(link); });
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) { Arrive(page); });
    Dress();
}

bool HelpPage::Readable(const QUrl& page)
{
    const QFileInfo file(page.toLocalFile());
    return file.isFile() && !BytesOf(page).isEmpty();
}

void HelpPage::Show(const QUrl& page)
{
    setSource(page);
}

void HelpPage::Arrive(const QUrl& page)
{
    // The toolkit's own source is still the page before.
    arrived_ = page;
    FitToWidth();
    // The pictures have their sizes only now.
    if (page.hasFragment())
        scrollToAnchor(page.fragment());
}

void HelpPage::Follow(const QUrl& link)
{
    const QUrl target = source().resolved(link);
    if (target.isLocalFile())
        Show(target);
    else if (target.scheme().startsWith(QLatin1String("http")))
        open_(target.toString());
}

QVariant HelpPage::loadResource(int type, const QUrl& name)
{
    const QUrl file = source().resolved(name);
    if (type != QTextDocument::HtmlResource)
        return {};  // the pictures are added in the sizes in which they are shown
    const QByteArray page = BytesOf(file);
    return page.isEmpty() ? Unreadable(file) : help_style::Body(page);
}

/// The colours of the pages are in their style sheet, which is read with the page.
void HelpPage::Dress()
{
    document()->setDefaultStyleSheet(help_style::Sheet(palette(), font()));
    QPalette look = palette();
    // What was found is seen while the focus is in the box for it.
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        if (look.color(QPalette::Inactive, role) != look.color(QPalette::Active, role)) {
            look.setColor(QPalette::Inactive, role, look.color(QPalette::Active, role));
            setPalette(look);
        }
}

void HelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    const bool colors = event->type() == QEvent::PaletteChange;
    if (!colors && event->type() != QEvent::FontChange)
        return;
    const double place =
        double(verticalScrollBar()->value()) / std::max(1, verticalScrollBar()->maximum());
    Dress();
    if (colors && !source().isEmpty())
        reload();
    FitToWidth();
    verticalScrollBar()->setValue(int(place * verticalScrollBar()->maximum()));
}

void HelpPage::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    FitToWidth();
}

void HelpPage::focusInEvent(QFocusEvent* event)
{
    // A screen reader reads at the caret, which the arrow keys move. Without one they scroll.
    setTextInteractionFlags(QAccessible::isActive()
                                ? Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard
                                : Qt::TextInteractionFlags(Qt::TextBrowserInteraction));
    QTextBrowser::focusInEvent(event);
}

void HelpPage::FitToWidth()
{
    const int most = fontMetrics().averageCharWidth() * kMostCharacters;
    const int room = std::min(most, viewport()->width() - 2 * kMargin);
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    format.setMargin(kMargin);
    format.setRightMargin(std::max(kMargin, viewport()->width() - kMargin - room));
    if (format != document()->rootFrame()->frameFormat())
        document()->rootFrame()->setFrameFormat(format);
    FitPictures(room);
}

void HelpPage::FitPictures(int room)
{
    for (QTextCursor& at : Pictures()) {
        QTextImageFormat format = at.charFormat().toImageFormat();
        const QUrl file = arrived_.resolved(QUrl(format.name()));
        const QImage picture(file.toLocalFile());
        const int width = std::min(picture.width(), room);
        if (picture.isNull() || width <= 0)
            continue;
        const QSize size(width, std::max(1, picture.height() * width / picture.width()));
        QImage drawn = picture.scaled(size * devicePixelRatioF(), Qt::IgnoreAspectRatio,
                                      Qt::SmoothTransformation);
        drawn.setDevicePixelRatio(devicePixelRatioF());
        document()->addResource(QTextDocument::ImageResource, file, drawn);
        format.setWidth(size.width());
        format.setHeight(size.height());
        at.setCharFormat(format);
    }
}

/// The places of the pictures in the page.
std::vector<QTextCursor> HelpPage::Pictures() const
{
    std::vector<QTextCursor> pictures;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            if (!at.fragment().charFormat().isImageFormat())
                continue;
            QTextCursor& cursor = pictures.emplace_back(document());
            cursor.setPosition(at.fragment().position());
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        }
    return pictures;
}

bool HelpPage::FindText(const QString& text, bool backward)
{
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (text.isEmpty() || find(text, flags))
        return !text.isEmpty();
    const QTextCursor before = textCursor();
    const int place = verticalScrollBar()->value();
    moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags))
        return true;
    setTextCursor(before);
    verticalScrollBar()->setValue(place);
    return false;
}

bool HelpPage::FindTyped(const QString& text)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    setTextCursor(cursor);
    return FindText(text, false);
}

}  // namespace clb
