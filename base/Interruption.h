#pragma once
#include <exception>

namespace clb {

/// Thrown out of a command because the program has been told to end. No RuntimeError, so no command
/// takes it for a failure of its own: what it wrote is taken back on the way out.
class Interrupted : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override
    {
        return "The program was told to end.";
    }
};

/// How soon a command is broken off. Anywhere: also in the middle of a statement. AtMarks: only
/// where a command looks by itself, between two rows or while it waits for the network. That is for
/// windows, which read while they paint and must not be left by an exception then.
enum class BreakOff { Anywhere, AtMarks };

/// Whether the program has been told to end. Long work looks at it where it can be broken off.
class Interruption {
public:
    /// Remembers the signal. May be called from a signal handler.
    static void Ask(int signal) noexcept;
    /// The signal that told the program to end; 0 if none did.
    static int Signal() noexcept;
    static bool Asked() noexcept { return Signal() != 0; }
    /// Forgets the signal, for a program that now ends of its own accord.
    static void Forget() noexcept;
    static void Use(BreakOff where) noexcept;

    /// Throws Interrupted if the program has been told to end: a mark.
    static void Check();
    /// Whether a statement is to be broken off in its middle.
    static bool BreaksStatements() noexcept;
    /// The same as Check, for places that are no marks.
    static void CheckAnywhere();
};

}  // namespace clb
