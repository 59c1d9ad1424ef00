#include "desktop/window/WorkDisplay.h"

#include <sigc++/adaptors/track_obj.h>

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include "controls/WorkProgress.h"
#include "desktop/input/InputEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

namespace {

constexpr qint64 kPaintEvery = 40;  // milliseconds
constexpr int kFinest = 1000;

}  // namespace

WorkDisplay::WorkDisplay(WorkProgress& progress, QStatusBar& bar)
    : progress_(progress), text_(new QLabel(&bar)), bar_(new QProgressBar(&bar))
{
    text_->setTextFormat(Qt::PlainText);
    text_->setObjectName(QStringLiteral("workText"));
    bar_->setObjectName(QStringLiteral("workBar"));
    bar_->setAccessibleName(QStringLiteral("Progress"));
    bar_->setTextVisible(false);
    bar_->setFixedWidth(text_->fontMetrics().averageCharWidth() * 24);
    bar_->setMaximumHeight(text_->fontMetrics().height());
    bar.addPermanentWidget(text_);
    bar.addPermanentWidget(bar_);
    text_->hide();
    bar_->hide();
    progress_.Changed().connect(sigc::track_obj([this] { Show(); }, *this));
}

void WorkDisplay::Show()
{
    const bool shown = !bar_->isHidden();
    if (progress_.Active() && !shown)
        sinceBegin_.start();
    const bool ended = !progress_.Active() && shown;
    bar_->setVisible(progress_.Active());
    text_->setVisible(progress_.Active());
    if (ended)
        Paint();  // What the user did in the meantime is dropped now, not carried out afterwards.
    else
        KeepAlive();
}

void WorkDisplay::KeepAlive()
{
    if (!progress_.Active() || painting_)
        return;
    if (sincePaint_.isValid() && sincePaint_.elapsed() < kPaintEvery)
        return;
    bar_->setRange(0, progress_.Permille() ? kFinest : 0);
    bar_->setValue(progress_.Permille().value_or(0));
    text_->setText(ToQString(progress_.Text()));
    Paint();
}

void WorkDisplay::Paint()
{
    painting_ = true;
    const InputBlock block;
    QCoreApplication::processEvents();
    painting_ = false;
    sincePaint_.start();
}

}  // namespace clb
