// The fields of MT940 and MT942 messages.
#pragma once
#include <cstddef>
#include <optional>
#include <string_view>

namespace clb {

/// A field, such as ":61:..." with the lines that continue it.
struct Mt940Field {
    std::string_view tag;      ///< "20", "60F", "86", "NS"
    std::string_view content;  ///< after the tag, with line ends between its lines
    std::size_t begin = 0;     ///< offset of the tag
    std::size_t message = 0;   ///< number of the message, from 0
    bool isLast = false;       ///< the text ends with it, without a mark of the message's end
};

/// Cuts a text into lines that end with LF, CR or both.
class LineCutter {
public:
    explicit LineCutter(std::string_view text, std::size_t at = 0) : text_(text), at_(at) {}
    /// Returns false at the end of the text.
    bool Next(std::string_view& line);
    /// Offset after the last line and its end.
    [[nodiscard]] std::size_t Offset() const { return at_; }

private:
    std::string_view text_;
    std::size_t at_;
    std::optional<std::size_t> feed_{};  ///< offset of the next line feed, once looked for
};

/// Goes through the fields of all messages of a text. What is between messages is skipped: SWIFT's
/// envelope, lines of a bank's own. The text is borrowed.
class Mt940Fields {
public:
    explicit Mt940Fields(std::string_view text) : text_(text) {}
    bool Next(Mt940Field& field);
    /// Whether the last message of the text has an end mark. Known once Next returned false.
    [[nodiscard]] bool Ended() const { return ended_; }

private:
    void Number(Mt940Field& field);
    [[nodiscard]] bool EndsMessage(std::string_view line, std::size_t next) const;

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t message_ = 0;
    bool ended_ = true;        ///< no message is open
    bool hasAccount_ = false;  ///< of the open message
    bool justHeader_ = false;  ///< the open message has nothing but its kind yet
    bool hasClosing_ = false;
    bool any_ = false;
};

/// The tag at the start of a line, such as "61" of ":61:"; empty if it begins no field.
[[nodiscard]] std::string_view Mt940Tag(std::string_view line);

}  // namespace clb
