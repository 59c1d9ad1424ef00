#pragma once
#include <exception>

namespace clb {

/// Thrown out of a command because the program has been told to end. No RuntimeError, so no command
/// takes it for a failure of its own: what it wrote is taken back on the way out.
class Interrupted : public std::exception {
public:
    const char* what() const noexcept override { return "The program was told to end."; }
};

/// Whether the program has been told to end. Long work looks at it where it can be broken off.
class Interruption {
public:
    /// Remembers the signal. May be called from a signal handler.
    static void Ask(int signal) noexcept;
    /// The signal that told the program to end; 0 if none did.
    static int Signal() noexcept;
    static bool Asked() noexcept { return Signal() != 0; }
    /// Throws Interrupted if the program has been told to end.
    static void Check()
    {
        if (Asked())
            throw Interrupted();
    }
    /// Forgets the signal, for a program that ends of its own accord now.
    static void Forget() noexcept;
};

}  // namespace clb
