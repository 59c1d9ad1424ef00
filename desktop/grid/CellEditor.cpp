#include "desktop/grid/CellEditor.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>
#include <algorithm>

#include "desktop/grid/GridPainter.h"
#include "desktop/input/UndoKeys.h"
#include "desktop/look/GridColors.h"
#include "desktop/look/Icons.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kBorder = 2;
constexpr int kTwipsPerInch = 1440;

bool EndsTheEdit(int key)
{
    switch (key) {
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: return true;
        default: return false;
    }
}

}  // namespace

CellEditor::CellEditor(GridComponent& grid, QAbstractScrollArea& view,
                       std::function<bool(const QKeyEvent&)> leave)
    : QFrame(view.viewport()),
      grid_(grid),
      view_(view),
      leave_(std::move(leave)),
      line_(new QLineEdit(this)),
      button_(new QToolButton(this)),
      hint_(new QLabel(view.viewport()))
{
    setObjectName(QStringLiteral("CellEditor"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    line_->setFrame(false);
    line_->installEventFilter(this);
    setFocusProxy(line_);
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setAutoRaise(true);
    button_->setArrowType(Qt::NoArrow);
    hint_->setObjectName(QStringLiteral("CellHint"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setMargin(4);
    hint_->setBackgroundRole(QPalette::Window);
    hint_->setForegroundRole(QPalette::WindowText);
    hint_->setAutoFillBackground(true);
    hint_->setFrameShape(QFrame::Box);
    connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) { Typed(text); });
    connect(button_, &QToolButton::clicked, this, [this] { DropDown(); });
    hide();
    hint_->hide();
}

const GridColumn& CellEditor::Column() const
{
    return grid_.Columns().Item(column_);
}

void CellEditor::Follow(const QRect& cell)
{
    const bool same = row_ == grid_.Row() && column_ == grid_.Col();
    if (open_ && (!grid_.Editing() || !same))
        Close();
    if (!grid_.Editing())
        return;
    row_ = grid_.Row();
    column_ = grid_.Col();
    Place(cell);
    if (!open_)
        Open();
    else if (line_->text() != ToQString(grid_.EditText()))
        line_->setText(ToQString(grid_.EditText()));
    ShowHint();
    update();
}

void CellEditor::Open()
{
    open_ = true;
    const bool right = Column().StandsRight();
    line_->setAlignment(right ? Qt::AlignRight : Qt::AlignLeft);
    line_->setAccessibleName(ToQString(Column().caption));
    line_->setText(ToQString(grid_.EditText()));
    line_->selectAll();
    typedLength_ = 0;
    button_->setVisible(HasList() || HasCalendar());
    button_->setIcon(HasCalendar() ? icons::Calendar() : icons::DropDown());
    button_->setToolTip(HasCalendar() ? QStringLiteral("Calendar (F4)")
                                      : QStringLiteral("List (F4)"));
    resizeEvent(nullptr);
    show();
    raise();
    view_.setFocusProxy(this);
    line_->setFocus(Qt::OtherFocusReason);
}

void CellEditor::Close()
{
    open_ = false;
    if (popup_)
        popup_->close();
    const bool focused = line_->hasFocus();
    view_.setFocusProxy(nullptr);
    if (focused)
        view_.setFocus(Qt::OtherFocusReason);
    hide();
    hint_->hide();
}

void CellEditor::Place(const QRect& cell)
{
    // The line covers the cell's frame lines, and is always wide enough to type in.
    QRect place = cell.adjusted(-1, -1, 0, 0);
    const bool drops = HasList() || HasCalendar();
    const int least = fontMetrics().horizontalAdvance(QStringLiteral("0000-00-00")) +
                      2 * GridPainter::kPadding + 2 * kBorder + (drops ? place.height() : 0);
    if (place.width() < least)
        place.setWidth(least);
    const int beyond = place.right() - parentWidget()->width() + 1;
    if (beyond > 0 && place.left() - beyond >= 0)
        place.translate(-beyond, 0);
    setGeometry(place);
}

void CellEditor::resizeEvent(QResizeEvent* /*event*/)
{
    const QRect inner = rect().adjusted(kBorder, kBorder, -kBorder, -kBorder);
    const int side = button_->isHidden() ? 0 : std::min(inner.height(), inner.width());
    line_->setGeometry(inner.adjusted(0, 0, -side, 0));
    // The text is in the same place as in the cell.
    line_->setTextMargins(std::max(0, GridPainter::kPadding - kBorder - 1), 0,
                          std::max(0, GridPainter::kPadding - kBorder - 2), 0);
    button_->setGeometry(inner.right() - side + 1, inner.top(), side, inner.height());
}

void CellEditor::paintEvent(QPaintEvent* /*event*/)
{
    const GridColors colors(palette());
    QPainter painter(this);
    painter.setPen(QPen(grid_.Marked() ? colors.negative : colors.accent, kBorder));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void CellEditor::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && open_)
        ShowHint();
}

void CellEditor::ShowHint()
{
    const bool refused = grid_.Marked() && !grid_.Refusal().empty();
    const QString text = ToQString(refused ? grid_.Refusal() : grid_.Entry().Understood());
    // Screen readers read a new description of the line that has the focus.
    if (line_->accessibleDescription() != text)
        line_->setAccessibleDescription(text);
    if (text.isEmpty()) {
        hint_->hide();
        return;
    }
    const GridColors colors(palette());
    QPalette look = palette();
    look.setColor(QPalette::Window,
                  Mix(refused ? colors.negative : colors.accent, colors.base, 0.15));
    look.setColor(QPalette::WindowText, colors.text);
    hint_->setPalette(look);
    const bool news = hint_->isHidden() || hint_->text() != text;
    hint_->setText(text);
    hint_->adjustSize();
    const QWidget& room = *parentWidget();
    const bool below = geometry().bottom() + hint_->height() < room.height();
    const int left = std::clamp(x(), 0, std::max(0, room.width() - hint_->width()));
    hint_->move(left, below ? geometry().bottom() + 1 : y() - hint_->height());
    hint_->show();
    hint_->raise();
    if (news && refused) {
        QAccessibleEvent alert(hint_, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void CellEditor::Typed(const QString& text)
{
    const bool longer = text.size() > typedLength_;
    typedLength_ = text.size();
    grid_.EditText(ToUtf8(text));
    ShowHint();
    if (longer && HasList() && line_->cursorPosition() == text.size())
        Complete(text);
}

void CellEditor::Complete(const QString& text)
{
    for (const GridValueItem& item : Column().valueItems) {
        const QString whole = ToQString(item.text);
        if (whole.size() <= text.size() || !whole.startsWith(text, Qt::CaseInsensitive))
            continue;
        Take(whole);
        // The part that was not typed is selected, so that the next key replaces it.
        line_->setSelection(static_cast<int>(whole.size()),
                            static_cast<int>(text.size() - whole.size()));
        return;
    }
}

void CellEditor::Take(const QString& text)
{
    line_->setText(text);
    grid_.EditText(ToUtf8(text));
    ShowHint();
}

void CellEditor::CaretToEnd()
{
    line_->deselect();
    line_->end(false);
}

void CellEditor::DropDown()
{
    if (!open_ || popup_ || (!HasList() && !HasCalendar()))
        return;
    const auto pick = [this](const QString& text) {
        Take(text);
        line_->selectAll();
    };
    int width = 0;
    if (HasList()) {
        QStringList texts;
        for (const GridValueItem& item : Column().valueItems)
            texts << ToQString(item.text);
        if (texts.isEmpty())
            return;
        popup_ = CellPopup::List(this, texts, line_->text(), Column().popup->rows, pick);
        width = Column().popup->width * logicalDpiX() / kTwipsPerInch;
    } else {
        const Date day = grid_.Entry().TypedDate().value_or(grid_.Entry().Today());
        popup_ = CellPopup::Calendar(
            this, QDate(day.Year(), day.Month(), day.Day()), [this, pick](const QDate& chosen) {
                if (const auto date = Date::Of(chosen.year(), chosen.month(), chosen.day()))
                    pick(ToQString(grid_.ShownText(*date, column_)));
            });
    }
    popup_->ShowAt(QRect(mapToGlobal(QPoint(0, 0)), size()), width);
}

/// Whether the text is a date that + and - can step from. "3" may become "3-11".
bool CellEditor::ShowsWholeDate() const
{
    return grid_.Entry().TypedDate() &&
           (line_->selectedText() == line_->text() || grid_.Entry().Understood().empty());
}

bool CellEditor::StepDay(const QKeyEvent& key)
{
    const int days = key.text() == QStringLiteral("+")   ? 1
                     : key.text() == QStringLiteral("-") ? -1
                                                         : 0;
    const bool empty = line_->text().trimmed().isEmpty();
    if (days == 0 || !HasCalendar() || !(empty || ShowsWholeDate()))
        return false;
    const Value value =
        empty ? grid_.Entry().Today() : Date::FromDays(grid_.Entry().TypedDate()->Days() + days);
    Take(ToQString(grid_.ShownText(value, column_)));
    line_->selectAll();
    return true;
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event)
{
    const bool offered = event->type() == QEvent::ShortcutOverride;
    if (watched != line_ || (event->type() != QEvent::KeyPress && !offered))
        return QFrame::eventFilter(watched, event);
    auto& key = *static_cast<QKeyEvent*>(event);
    if (RedoesTyping(key)) {
        event->accept();
        if (!offered)
            line_->redo();
        return true;
    }
    if (offered)
        return false;
    const bool opensList = key.key() == Qt::Key_F4 ||
                           (key.key() == Qt::Key_Down && key.modifiers() == Qt::AltModifier);
    if (opensList) {
        DropDown();
        return true;
    }
    if (EndsTheEdit(key.key()))
        return leave_(key);
    return StepDay(key);
}

}  // namespace clb
