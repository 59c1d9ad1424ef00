// Sets the mouse pointer.
#pragma once
#include "ports/IPointer.h"

namespace clb {

/// The mouse pointer over all of the program's windows.
class PointerPort : public IPointer {
public:
    [[nodiscard]] std::int32_t Pointer() const override { return code_; }
    void Pointer(std::int32_t code) override;

private:
    std::int32_t code_ = pointer::Default;
};

/// Shows the normal pointer for its own lifetime, because the program now waits for the user.
class PlainPointer {
public:
    PlainPointer();
    ~PlainPointer();
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};

}  // namespace clb
