#include "desktop/grid/EmptyState.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kGap = 8;
constexpr int kWideGap = 14;
constexpr int kOpenBook = 7;

/// The part of the window that Tab reaches before the grid.
QWidget* StopBefore(const QWidget& grid)
{
    QWidget* stop = grid.previousInFocusChain();
    while (stop != &grid && (stop->focusPolicy() & Qt::TabFocus) == 0)
        stop = stop->previousInFocusChain();
    return stop;
}

}  // namespace

std::span<const EmptyState::Form> EmptyState::FormsOf(const EmptyHint& hint)
{
    using enum WayButton::Look;
    static constexpr Form kHint[] = {{Link, 64}};
    static constexpr Form kGreeting[] = {
        {.look = Card, .characters = 120, .explains = true},
        {.look = Line, .characters = 68, .explains = true},
        {.look = Line, .characters = 68, .picture = false, .explains = true},
        {.look = Card, .characters = 100},
        {.look = Line, .characters = 52},
        {.look = Card, .characters = 100, .picture = false, .text = false},
        {.look = Line, .characters = 52, .picture = false, .text = false},
        {.look = Card, .characters = 100, .picture = false, .title = false, .text = false},
        {.look = Line, .characters = 52, .picture = false, .title = false, .text = false},
    };
    if (hint.greets)
        return kGreeting;
    return kHint;
}

EmptyState::EmptyState(QAbstractScrollArea& grid)
    : QWidget(grid.viewport()),
      grid_(grid),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      row_(new QBoxLayout(QBoxLayout::LeftToRight))
{
    setObjectName(QStringLiteral("EmptyState"));
    text_->setWordWrap(true);
    for (QLabel* label : {title_, text_}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    auto* all = new QBoxLayout(QBoxLayout::TopToBottom, this);
    all->setSpacing(kGap);
    all->addWidget(title_);
    all->addWidget(text_);
    all->addLayout(row_);
    MeasureFonts();
    TakeColors();
    hide();
}

int EmptyState::PictureSide() const
{
    return fontMetrics().height() * 5 / 2;
}

void EmptyState::MeasureFonts()
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * (shown_.greets ? 1.5 : 1.25));
    large.setWeight(QFont::DemiBold);
    title_->setFont(large);
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
        MeasureFonts();
}

void EmptyState::Follow(const std::optional<EmptyHint>& hint, const QRect& room)
{
    if (!hint)
        return Hide(*this);
    if (*hint != shown_)
        Take(*hint);
    for (const Form& form : FormsOf(*hint))
        if (Fits(form, room))
            return show();
    Hide(*this);
}

void EmptyState::Arrange(const Form& form)
{
    picture_ = form.picture;
    title_->setVisible(form.title);
    text_->setVisible(form.text);
    for (const EmptyHint::Way& way : shown_.ways)
        LinkTo(way.item)->Draw(form.look, form.explains);
    row_->setDirection(form.look == WayButton::Look::Line ? QBoxLayout::TopToBottom
                                                          : QBoxLayout::LeftToRight);
    row_->setSpacing(form.look == WayButton::Look::Card ? kWideGap : kGap);
    row_->setContentsMargins(0, form.explains ? kGap : 0, 0, 0);
    layout()->setContentsMargins(0, form.picture ? PictureSide() + kGap : 0, 0, 0);
}

bool EmptyState::Fits(const Form& form, const QRect& room)
{
    Arrange(form);
    const int least = layout()->totalMinimumSize().width();
    const int wanted = std::max(least, fontMetrics().averageCharWidth() * form.characters);
    const int width = std::min(room.width() - 2 * kGap, wanted);
    const int height = layout()->totalHeightForWidth(width);
    if (width < least || height > room.height() - kGap)
        return false;
    // A little above the middle, where the eye looks first.
    setGeometry(room.left() + (room.width() - width) / 2,
                room.top() + (room.height() - height) * 2 / 5, width, height);
    return true;
}

void EmptyState::Take(const EmptyHint& hint)
{
    shown_ = hint;
    MeasureFonts();
    title_->setText(ToQString(hint.title));
    text_->setText(ToQString(hint.text));
    while (QLayoutItem* item = row_->takeAt(0))
        delete item;
    for (const auto& [item, link] : links_)
        if (std::none_of(
                hint.ways.begin(), hint.ways.end(),
                [&wanted = item](const EmptyHint::Way& way) { return way.item == wanted; }))
            Hide(*link);
    // Links stand close together in the middle, large ways share the width.
    if (!hint.greets)
        row_->addStretch(1);
    // Tab reaches the links after the grid's cells, and the ways to begin before them.
    QWidget* before = hint.greets ? StopBefore(grid_) : &grid_;
    for (const EmptyHint::Way& way : hint.ways) {
        WayButton* link = LinkTo(way.item);
        link->Take(way);
        row_->addWidget(link, hint.greets ? 1 : 0);
        link->show();
        if (before != link)
            setTabOrder(before, link);
        before = link;
    }
    if (!hint.greets)
        row_->addStretch(1);
}

WayButton* EmptyState::LinkTo(const std::string& item)
{
    WayButton*& link = links_[item];
    if (!link) {
        link = new WayButton(this);
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
    if (!picture_)
        return;
    QPainter painter(this);
    const QIcon picture = shown_.greets ? icons::Application() : icons::TreeImage(kOpenBook);
    const int side = PictureSide();
    picture.paint(&painter, QRect((width() - side) / 2, 0, side, side), Qt::AlignCenter,
                  shown_.greets ? QIcon::Normal : QIcon::Disabled);
}

}  // namespace clb
