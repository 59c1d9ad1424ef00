// Starts threads, and reports if the system cannot give one.
#pragma once
#include <functional>
#include <thread>

#include "base/RuntimeError.h"

namespace clb {

/// The error (OutOfMemory) for a thread that the system cannot give: its stack does not fit into
/// memory, or too many threads are running.
RuntimeError NoThread();

/// Starts a thread. Throws NoThread() if the system cannot give one. The work must not throw.
std::thread StartThread(std::function<void()> work);

}  // namespace clb
