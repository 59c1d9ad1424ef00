// The mouse pointer.
#pragma once
#include <cstdint>

namespace clb {

/// Codes of the mouse pointer.
namespace pointer {
enum : std::int32_t { Default = 0, Hourglass = 11 };
}  // namespace pointer

/// The mouse pointer over the whole screen.
class IPointer {
public:
    virtual ~IPointer() = default;
    [[nodiscard]] virtual std::int32_t Pointer() const = 0;
    virtual void Pointer(std::int32_t code) = 0;
};

}  // namespace clb
