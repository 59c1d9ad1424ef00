#include "desktop/window/IncomingFiles.h"

#include <QApplication>

#include "app/frmController.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"
#include "desktop/window/MainWindow.h"
#include "import/StatementKind.h"
#include "views/MenuNames.h"

namespace clb {

namespace {

constexpr int kLookAgain = 100;  // milliseconds

}  // namespace

IncomingFiles::IncomingFiles(frmController& controller, MainWindow& window, UserEvents& events,
                             IMessageBox& messages, Answer answer)
    : controller_(controller),
      window_(window),
      events_(events),
      messages_(messages),
      answer_(std::move(answer))
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &IncomingFiles::Next);
}

void IncomingFiles::Take(const QStringList& paths)
{
    waiting_ += paths;
    if (!waiting_.isEmpty())
        timer_.start(0);
}

void IncomingFiles::Next()
{
    if (waiting_.isEmpty() || !controller_.Loaded())
        return;
    if (CanBegin()) {
        importing_ = true;
        const std::string path = ToUtf8(waiting_.takeFirst());
        if (!window_.GridAgrees()) {
            waiting_.clear();
        } else if (IsStatement(path)) {
            answer_(path);
            events_.Run([this] { controller_.menus.Find(command_name::kImport)->Press(); });
        }
        importing_ = false;
    }
    if (!waiting_.isEmpty())
        timer_.start(kLookAgain);
}

bool IncomingFiles::CanBegin() const
{
    return !importing_ && !events_.Running() && controller_.window.Enabled() &&
           QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

bool IncomingFiles::IsStatement(const std::string& path)
{
    std::string reason = "Invalid file format.";
    try {
        if (StatementKind(path) != 0)
            return true;
    } catch (const RuntimeError& error) {
        reason = error.what();
    }
    messages_.Show(reason + "\n\n" + path, box_style::Critical, product::kTitle);
    return false;
}

}  // namespace clb
