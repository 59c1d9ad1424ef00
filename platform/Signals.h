#pragma once
#include "base/Interruption.h"

namespace clb {

/// To be called first in a program: errors in writing come as errors, not as signals that end the
/// program, and no file that is opened takes the number of a closed standard stream.
void PrepareProcess();

/// While it lives, the signals that tell the program to end (SIGTERM, SIGINT, SIGHUP) are only
/// remembered (base/Interruption.h), so that commands take back what they wrote and remove their
/// temporary files. A second signal ends the program at once. Signals that the program was started
/// to ignore, as nohup does, stay ignored. One at a time, made on the main thread.
class EndingSignals {
public:
    explicit EndingSignals(BreakOff where);
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    /// Becomes readable when a signal has come; -1 when none is remembered.
    static int Descriptor();
};

/// Ends the process by the signal that has been remembered, so that its exit status tells.
[[noreturn]] void EndBySignal();

}  // namespace clb
