#include "desktop/window/MonthPrompt.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/GridColors.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr const char* kExamples = "For example 2024-3 or mar 24";
constexpr const char* kNoMonth = "That is no month. For example 2024-3 or mar 24";

}  // namespace

MonthPrompt::MonthPrompt(QWidget* parent, DateContext context, DateHabits habits,
                         std::function<void(const Month&)> go)
    : QFrame(parent, Qt::Popup),
      context_(context),
      habits_(std::move(habits)),
      go_(std::move(go)),
      line_(new QLineEdit(this)),
      hint_(new QLabel(this))
{
    setObjectName(QStringLiteral("MonthPrompt"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    auto* title = new QLabel(QStringLiteral("Go to month"), this);
    title->setBuddy(line_);
    line_->setAccessibleName(title->text());
    hint_->setTextFormat(Qt::PlainText);
    auto* inside = new QVBoxLayout(this);
    for (QWidget* part : std::initializer_list<QWidget*>{title, line_, hint_})
        inside->addWidget(part);
    // The box is as wide as its longest hint, so that it does not change while one types.
    line_->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String(kNoMonth)) +
                           fontMetrics().averageCharWidth());
    connect(line_, &QLineEdit::textEdited, this, [this] { Follow(); });
    setFocusProxy(line_);
    Follow();
}

void MonthPrompt::OpenBelow(const QWidget& widget)
{
    adjustSize();
    const QWidget& window = *widget.window();
    const int room = window.mapToGlobal(QPoint(window.width(), 0)).x();
    QPoint place = widget.mapToGlobal(QPoint(0, widget.height()));
    place.setX(
        std::max(widget.screen()->availableGeometry().left(), std::min(place.x(), room - width())));
    move(place);
    show();
    line_->setFocus(Qt::PopupFocusReason);
}

QString MonthPrompt::Hint() const
{
    return hint_->text();
}

std::optional<Month> MonthPrompt::Typed() const
{
    return ReadTypedMonth(ToUtf8(line_->text()), context_, habits_);
}

void MonthPrompt::Follow()
{
    const auto month = Typed();
    const GridColors colors(palette());
    QPalette look = hint_->palette();
    look.setColor(QPalette::WindowText, month ? colors.text : colors.dimText);
    hint_->setPalette(look);
    hint_->setText(month ? QLocale(QLocale::English).standaloneMonthName(month->period) +
                               QStringLiteral(" %1").arg(month->year)
                         : QLatin1String(kExamples));
    hint_->setAccessibleName(hint_->text());
    line_->setAccessibleDescription(hint_->text());
}

void MonthPrompt::Take()
{
    const auto month = Typed();
    if (!month) {
        QPalette look = hint_->palette();
        look.setColor(QPalette::WindowText, GridColors(palette()).negative);
        hint_->setPalette(look);
        hint_->setText(QLatin1String(kNoMonth));
        line_->setAccessibleDescription(hint_->text());
        line_->selectAll();
        return;
    }
    close();
    go_(*month);
}

void MonthPrompt::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return Take();
        case Qt::Key_Escape: close(); return;
        default: QFrame::keyPressEvent(event);
    }
}

}  // namespace clb
