// The book of the demonstration: a made-up household in a window of its own.
#pragma once
#include <optional>
#include <string>

#include "base/Date.h"

namespace clb {

/// The folder of the demonstration, in the user's folder for caches. No other book is ever there.
[[nodiscard]] std::string DemoFolder();

/// Makes the folder ready to be locked, with a folder for its database. Throws PortError if it
/// cannot be made, or if it is a link, which could lead to another book.
void PrepareDemoFolder(const std::string& folder);
/// Replaces whatever is in the folder by the household of a day, except the lock. Only for the
/// program that holds the lock. Throws PortError and EngineError.
void RenewDemoBook(const std::string& folder, const Date& today);

/// Opens the demonstration in a program of its own, which goes on when this one ends. If it is
/// open already, its window comes to the front. Throws RuntimeError if no program can be started.
/// now: the local time at which that program's clock stands, if it does.
void OpenDemo(const std::optional<Date>& now);

}  // namespace clb
