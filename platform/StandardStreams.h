// Standard input that a signal can end, and errors of standard output.
#pragma once
#include <array>
#include <streambuf>
#include <string>

namespace clb {

/// Standard input for a std::istream. It ends when the input ends or the program is asked to end.
class StandardInput : public std::streambuf {
public:
    /// wake: a descriptor that becomes readable when the program is asked to end; -1 for none.
    explicit StandardInput(int wake) : wake_(wake) {}

protected:
    int_type underflow() override;

private:
    [[nodiscard]] bool WaitForInput() const;

    int wake_;
    std::array<char, 1 << 16> buffer_{};
};

/// Flushes std::cout. Returns an error message if anything that was printed could not be written,
/// else an empty text.
[[nodiscard]] std::string FinishOutput();

}  // namespace clb
