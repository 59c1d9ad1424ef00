// Tells long work that the program has been told to end.
#pragma once
#include <exception>

namespace clb {

/// Ends a command because the program has been told to end. It is not a RuntimeError, so no command
/// handles it as a failure of its own. What the command wrote is rolled back.
class Interrupted : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override
    {
        return "The program was told to end.";
    }
};

/// Where a command may be interrupted. Anywhere: also in the middle of a query. AtMarks: only where
/// a command calls Check, between two rows or while it waits for the network. Windows use AtMarks,
/// because they read while they paint and an exception must not end that.
enum class BreakOff { Anywhere, AtMarks };

/// Whether the program has been told to end. Long work checks this where it can stop.
class Interruption {
public:
    /// Records the signal. May be called from a signal handler.
    static void Ask(int signal) noexcept;
    /// The signal that told the program to end; 0 if none did.
    static int Signal() noexcept;
    static bool Asked() noexcept { return Signal() != 0; }
    /// Forgets the signal, for a program that now ends of its own accord.
    static void Forget() noexcept;
    static void Use(BreakOff where) noexcept;

    /// Throws Interrupted if the program has been told to end. Each call is a mark.
    static void Check();
    /// Whether a running query must stop.
    static bool BreaksQueries() noexcept;
    /// The same as Check, for places that are not marks.
    static void CheckAnywhere();
};

}  // namespace clb
