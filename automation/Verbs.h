// Carries out requests.
#pragma once
#include <string>

#include "app/frmController.h"
#include "automation/AnswerQueue.h"
#include "automation/Automation.h"
#include "automation/EventLog.h"
#include "automation/Request.h"

namespace clb {

/// What a verb works on. Everything is borrowed.
struct Session {
    frmController& controller;
    AnswerQueue& answers;
    EventLog& log;
    IPresenter* presenter;  ///< nullptr without a window
};

/// Carries out one request and returns the reply's members besides "ok" (an empty object if there
/// are none). Throws RequestError, and changes nothing, if the request is not valid. Lets the
/// program's own errors pass.
[[nodiscard]] Json PerformVerb(Session& session, const Request& request);

}  // namespace clb
