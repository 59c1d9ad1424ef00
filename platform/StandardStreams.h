#pragma once
#include <array>
#include <streambuf>
#include <string>

namespace clb {

/// Standard input for a std::istream. It ends at the end of input and when the program is told to
/// end.
class StandardInput : public std::streambuf {
public:
    /// wake becomes readable when the program is told to end; -1: it never is.
    explicit StandardInput(int wake) : wake_(wake) {}

protected:
    int_type underflow() override;

private:
    bool WaitForInput() const;

    int wake_;
    std::array<char, 1 << 16> buffer_{};
};

/// Writes out what std::cout still holds. Returns the sentence that tells that something which was
/// printed could not be written; empty if all was.
std::string FinishOutput();

}  // namespace clb
