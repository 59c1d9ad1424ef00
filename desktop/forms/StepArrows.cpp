#include "desktop/forms/StepArrows.h"

#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/input/UserEvents.h"

namespace clb {

StepArrows::StepArrows(Spinner& spinner, UserEvents& events, QWidget* parent) : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (const Qt::ArrowType arrow : {Qt::UpArrow, Qt::DownArrow}) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(fontMetrics().height() + 6, fontMetrics().height() * 4 / 5);
        connect(button, &QToolButton::clicked, this, [&spinner, &events, arrow] {
            events.Run([&] { spinner.Step(arrow == Qt::UpArrow ? 1 : -1); });
        });
        column->addWidget(button);
    }
}

}  // namespace clb
