// What the program does when a signal asks it to end.
#pragma once
#include "base/Interruption.h"

namespace clb {

/// Call this first in a program. From then on a failed write is an error instead of a signal that
/// ends the program, and no opened file gets the number of a closed standard stream.
void PrepareProcess();

/// While an object exists, the signals that ask the program to end (SIGTERM, SIGINT, SIGHUP) are
/// only recorded (base/Interruption.h), so that commands can take back what they wrote and remove
/// their temporary files. A second signal ends the program at once. A signal that the program was
/// started to ignore (nohup does that) stays ignored. Make one object only, on the main thread.
class EndingSignals {
public:
    explicit EndingSignals(BreakOff where);
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    /// A file descriptor that becomes readable when a signal arrives; -1 if no object exists.
    [[nodiscard]] static int Descriptor();
};

/// Ends the process by the recorded signal, so that its exit status shows the signal.
[[noreturn]] void EndBySignal();

}  // namespace clb
