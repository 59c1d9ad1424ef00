// The tags of an XML text, one after the other.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace clb {

struct XmlTag {
    enum class Kind : std::uint8_t { Open, Close, Empty };
    Kind kind = Kind::Open;
    std::string_view name;    ///< without a namespace prefix
    std::string_view prefix;  ///< of the namespace, without the colon
    std::size_t begin = 0;    ///< offset of '<'
    std::size_t end = 0;      ///< offset after '>'
};

/// Goes through the tags of an XML text, over texts, comments, declarations and sections of
/// characters. Takes time in proportion to the text, whatever it holds. The text is borrowed.
class XmlScanner {
public:
    explicit XmlScanner(std::string_view text) : text_(text) {}
    /// Returns false at the end of the text, or where it breaks off inside a tag.
    bool Next(XmlTag& tag);
    /// Whether the text ended inside a tag, a comment or a section.
    [[nodiscard]] bool BrokeOff() const { return brokeOff_; }
    /// Whether sections of characters that hold markup themselves are read as markup, from here on.
    /// Some envelopes carry a message as text.
    void OpenSections(bool open) { openSections_ = open; }

private:
    bool SkipTo(std::string_view end);
    bool SkipMarkup();
    bool SkipDocumentType();
    bool ReadTag(XmlTag& tag);
    [[nodiscard]] std::size_t EndOfTag(std::size_t at) const;
    bool Fail();

    std::string_view text_;
    std::size_t at_ = 0;
    bool brokeOff_ = false;
    bool openSections_ = false;
};

}  // namespace clb
