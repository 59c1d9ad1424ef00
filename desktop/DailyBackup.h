#pragma once
#include <optional>
#include <string>

#include "base/Date.h"

class QWidget;

namespace clb {

/// Once the window has been painted for the first time, starts a process of its own that makes the
/// day's backup of the program folder's database, unless the day has one.
void BackUpAfterFirstPaint(QWidget& window, const std::string& folder, const Date& day);

/// What that process does; nobody waits for it, so it leaves the machine to others. Returns its
/// exit code: 1 when there is no backup, which nobody is told.
int MakeDailyBackup(const std::optional<std::string>& home, const Date& day);

}  // namespace clb
