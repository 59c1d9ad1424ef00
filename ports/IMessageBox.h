// Message boxes: their styles and answers.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// The button that closed a message box.
enum class BoxAnswer { OK, Cancel, Yes, No };

/// The style of a message box: one icon plus one set of buttons.
namespace box_style {
enum : std::int32_t {
    OkOnly = 0,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64
};

/// The part of a style that names the buttons.
constexpr std::int32_t Buttons(std::int32_t style)
{
    return style & 7;
}
/// The part of a style that names the icon.
constexpr std::int32_t Icon(std::int32_t style)
{
    return style & 0x70;
}
}  // namespace box_style

/// Shows the user a message and waits for a button.
class IMessageBox {
public:
    virtual ~IMessageBox() = default;
    /// style: icon + buttons of box_style. The text may be as long as a whole file.
    virtual BoxAnswer Show(const std::string& text, std::int32_t style,
                           const std::string& title) = 0;
};

}  // namespace clb
