#include "desktop/window/TotalsLine.h"

#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <climits>
#include <initializer_list>

#include "app/frmController.h"
#include "desktop/grid/GridView.h"
#include "desktop/input/UndoKeys.h"
#include "desktop/look/Announcement.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr int kFrame = 12;  // pixels of a box's width that its frame and margins take
constexpr int kGap = 4;     // pixels between the boxes

}  // namespace

void ApplyPlace(const Control& control, QWidget& widget)
{
    const Bounds& place = control.Place();
    widget.setVisible(place.width > 0 && place.height > 0);
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

TotalsLine::TotalsLine(frmController& controller, GridView& grid, QWidget* parent)
    : controller_(controller),
      grid_(grid),
      label_(new QLabel(parent)),
      first_(new QLineEdit(parent)),
      second_(new QLineEdit(parent))
{
    label_->setObjectName(ToQString(controller_.lblTotal.Name()));
    first_->setObjectName(ToQString(controller_.txtTotal.Name()));
    second_->setObjectName(ToQString(controller_.txtTotal2.Name()));
    label_->setTextFormat(Qt::PlainText);
    label_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = label_->font();
    bold.setWeight(QFont::DemiBold);
    for (QLineEdit* box : {first_, second_}) {
        box->setReadOnly(true);
        new UndoKeys(*box, *box, [] { return false; });
        box->setAlignment(Qt::AlignRight);
        box->setFont(bold);
    }
    for (Control* control : std::initializer_list<Control*>{
             &controller_.lblTotal, &controller_.txtTotal, &controller_.txtTotal2})
        Follow(*control);
    grid_.OnColumnsMoved([this] { Arrange(); });
    Arrange();
}

void TotalsLine::Follow(Control& control)
{
    control.Changed().connect(sigc::track_obj([this] { Arrange(); }, *this));
}

void TotalsLine::Arrange()
{
    const int second = Show(controller_.txtTotal2, *second_, INT_MAX);
    const int first = Show(controller_.txtTotal, *first_, second);
    ApplyPlace(controller_.lblTotal, *label_);
    const QString caption = ToQString(controller_.lblTotal.Caption());
    const Bounds& place = controller_.lblTotal.Place();
    const bool alone = controller_.txtTotal.Place().width <= 0;
    const int right = alone ? place.left + place.width : first - kGap;
    const int width = std::min(right, label_->fontMetrics().horizontalAdvance(caption));
    const int left = std::min(place.left, right - width);
    label_->setGeometry(std::max(0, left), place.top, right - std::max(0, left), place.height);
    const QString shown =
        label_->fontMetrics().elidedText(caption, Qt::ElideRight, label_->width());
    label_->setText(shown);
    label_->setToolTip(shown == caption ? QString() : caption);
}

/// The amounts that are shown, each with its name.
QString TotalsLine::Amounts() const
{
    QStringList amounts;
    for (const QLineEdit* box : {first_, second_})
        if (!box->isHidden() && !box->text().isEmpty())
            amounts << box->accessibleName() + u' ' + box->text();
    return amounts.join(QStringLiteral(", "));
}

std::int32_t TotalsLine::ColumnOf(const QLineEdit* drawn) const
{
    if (!controller_.Loaded())
        return 0;
    const ViewDefinition& view = controller_.View().Definition();
    return drawn == second_ ? view.secondTotal : view.firstTotal;
}

TotalsLine::Room TotalsLine::RoomBelow(std::int32_t column) const
{
    const QRect cell = column == 0 ? QRect() : grid_.Layout().CellRect(1, column);
    if (cell.isEmpty())
        return {};
    return {grid_.x() + cell.left(), grid_.x() + std::min(cell.right() + 1, grid_.width())};
}

int TotalsLine::Show(const TextBox& box, QLineEdit& drawn, int limit)
{
    ApplyPlace(box, drawn);
    const Bounds& place = box.Place();
    if (place.width <= 0)
        return limit;
    Room room = RoomBelow(ColumnOf(&drawn));
    if (room.right <= room.left)
        room = {place.left, place.left + place.width};
    // The first box ends with its column, so the second leaves the gap.
    if (&drawn == second_)
        room.left += kGap;
    const QString amount = ToQString(box.Text());
    const int right = std::min(room.right, limit == INT_MAX ? limit : limit - kGap);
    const int needed = drawn.fontMetrics().horizontalAdvance(amount) + kFrame;
    // A box that is alone is as wide as its control.
    const int least = limit == INT_MAX ? std::max<int>(needed, place.width - kGap) : needed;
    const int left = std::max(0, std::min(room.left, right - least));
    drawn.setGeometry(left, place.top, right - left, place.height);
    drawn.setText(amount);
    return left;
}

void TotalsLine::Describe()
{
    if (!controller_.Loaded())
        return;
    NameAfter(*first_);
    NameAfter(*second_);
    const QString subject = Subject();
    const QString amounts = Amounts();
    const bool changed = subject == subject_ && amounts != read_;
    subject_ = subject;
    read_ = amounts;
    if (changed)
        Announce(*first_, amounts);
}

QString TotalsLine::Subject() const
{
    const clsView& view = controller_.View();
    return QStringLiteral("%1 %2 %3 %4")
        .arg(view.Definition().view)
        .arg(view.Year())
        .arg(view.Period())
        .arg(ToQString(view.AccountID()));
}

void TotalsLine::NameAfter(QLineEdit& drawn)
{
    const GridColumns& columns = controller_.Grid.Columns();
    const std::int32_t column = ColumnOf(&drawn);
    const bool shown = column >= 1 && column <= columns.Count();
    NamePart(drawn, ToQString(controller_.lblTotal.Caption()) + QStringLiteral(" ") +
                        ToQString(shown ? columns.Item(column).caption : std::string()));
}

}  // namespace clb
