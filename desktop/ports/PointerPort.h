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

/// The normal pointer for as long as this lives, whatever the program has set: the program waits
/// for the user now.
class PlainPointer {
public:
    PlainPointer();
    ~PlainPointer();
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};

}  // namespace clb
