#include "desktop/grid/EmptyState.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kGap = 8;
constexpr int kOpenBook = 7;

/// A button that looks like a link.
class LinkButton : public QPushButton {
public:
    explicit LinkButton(QWidget* parent) : QPushButton(parent)
    {
        // A click does not move the focus away from where the user works.
        setFocusPolicy(Qt::TabFocus);
        setCursor(Qt::PointingHandCursor);
    }
    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 2 * kGap, fontMetrics().height() + kGap};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const GridColors colors(palette());
        QPainter painter(this);
        QFont underlined = font();
        underlined.setUnderline(true);
        painter.setFont(underlined);
        painter.setPen(colors.link);
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (!hasFocus())
            return;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colors.accent, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QPushButton::keyPressEvent(event);
    }
};

int PictureSide(const QWidget& widget)
{
    return widget.fontMetrics().height() * 5 / 2;
}

/// Fits the title and the room for the picture to the font of the hint.
void MeasureFonts(QWidget& hint, QLabel& title)
{
    QFont large = hint.font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    large.setWeight(QFont::DemiBold);
    title.setFont(large);
    hint.layout()->setContentsMargins(0, PictureSide(hint) + kGap, 0, 0);
}

}  // namespace

EmptyState::EmptyState(QAbstractScrollArea& grid)
    : QWidget(grid.viewport()),
      grid_(grid),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      row_(new QHBoxLayout)
{
    setObjectName(QStringLiteral("EmptyState"));
    text_->setWordWrap(true);
    for (QLabel* label : {title_, text_}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    auto* all = new QVBoxLayout(this);
    all->setSpacing(kGap);
    all->addWidget(title_);
    all->addWidget(text_);
    all->addLayout(row_);
    MeasureFonts(*this, *title_);
    TakeColors();
    hide();
}

void EmptyState::TakeColors()
{
    const GridColors colors(palette());
    for (QLabel* label : {title_, text_}) {
        QPalette look = label->palette();
        look.setColor(QPalette::WindowText, label == title_ ? colors.text : colors.dimText);
        label->setPalette(look);
    }
}

void EmptyState::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        TakeColors();
    if (event->type() == QEvent::FontChange && layout())
        MeasureFonts(*this, *title_);
}

void EmptyState::Follow(const std::optional<EmptyHint>& hint, const QRect& room)
{
    if (!hint)
        return Hide(*this);
    if (*hint != shown_)
        Take(*hint);
    // As wide as a text reads well, or as its links need.
    const int least = layout()->totalMinimumSize().width();
    const int width =
        std::min(room.width() - 2 * kGap, std::max(fontMetrics().averageCharWidth() * 64, least));
    const int height = layout()->totalHeightForWidth(width);
    if (width < least || height > room.height() - kGap)
        return Hide(*this);
    // A little above the middle, where the eye looks first.
    setGeometry(room.left() + (room.width() - width) / 2,
                room.top() + (room.height() - height) * 2 / 5, width, height);
    show();
}

void EmptyState::Take(const EmptyHint& hint)
{
    shown_ = hint;
    title_->setText(ToQString(hint.title));
    text_->setText(ToQString(hint.text));
    while (QLayoutItem* item = row_->takeAt(0))
        delete item;
    for (const auto& [item, link] : links_)
        if (std::none_of(
                hint.ways.begin(), hint.ways.end(),
                [&wanted = item](const EmptyHint::Way& way) { return way.item == wanted; }))
            Hide(*link);
    row_->addStretch(1);
    // Tab reaches the links after the grid's cells.
    QWidget* before = &grid_;
    for (const EmptyHint::Way& way : hint.ways) {
        QPushButton* link = LinkTo(way.item);
        link->setText(ToQString(way.caption));
        row_->addWidget(link);
        link->show();
        setTabOrder(before, link);
        before = link;
    }
    row_->addStretch(1);
}

QPushButton* EmptyState::LinkTo(const std::string& item)
{
    QPushButton*& link = links_[item];
    if (!link) {
        link = new LinkButton(this);
        connect(link, &QPushButton::clicked, this, [this, item] { press_(item); });
    }
    return link;
}

QString EmptyState::Words() const
{
    QStringList links;
    for (const EmptyHint::Way& way : shown_.ways)
        links << ToQString(way.caption);
    const QString words = title_->text() + QStringLiteral(". ") + text_->text();
    return links.isEmpty()
               ? words
               : words + QStringLiteral(" Links: ") + links.join(QStringLiteral(", ")) + u'.';
}

void EmptyState::Hide(QWidget& part)
{
    // If the part has the focus, the grid gets it back.
    const QWidget* focused = QApplication::focusWidget();
    if (focused && (focused == &part || part.isAncestorOf(focused)))
        grid_.setFocus(Qt::OtherFocusReason);
    part.hide();
}

void EmptyState::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const int side = PictureSide(*this);
    icons::TreeImage(kOpenBook).paint(&painter, QRect((width() - side) / 2, 0, side, side),
                                      Qt::AlignCenter, QIcon::Disabled);
}

}  // namespace clb
