#pragma once
#include "app/frmController.h"
#include "automation/AnswerQueue.h"
#include "automation/Automation.h"
#include "automation/EventLog.h"
#include "automation/Request.h"

#include <string>

namespace clb {

/// What a verb works on. All borrowed.
struct Session {
    frmController& controller;
    AnswerQueue& answers;
    EventLog& log;
    IPresenter* presenter;  ///< nullptr without a window
};

/// Carries out one request and returns the reply's members (an empty object when there are none but
/// "ok"). Throws RequestError, with nothing changed, for a request that cannot be carried out as it
/// stands, and lets the program's own errors pass.
Json PerformVerb(Session& session, const Request& request);

}  // namespace clb
