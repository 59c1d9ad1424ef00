// Splits OFX into tags and their values.
#pragma once
#include <cstddef>
#include <string_view>

#include "statements/ofx/OfxTags.h"

namespace clb {

/// A tag with the text after it.
struct OfxToken {
    enum class Kind { Open, Close };
    Kind kind = Kind::Open;
    OfxTag tag = OfxTag::Unknown;
    std::string_view name;   ///< as the file has it, without prefix
    std::string_view value;  ///< raw text up to the next tag, without blanks around it
    bool closed = false;     ///< an empty tag such as <MEMO/>
    std::size_t offset = 0;  ///< of the tag
};

/// Goes through OFX of every version: SGML whose elements have no end tags, and XML. A '<' that
/// begins no tag is text. Comments, processing instructions and declarations are skipped.
class OfxScanner {
public:
    /// The text is borrowed.
    explicit OfxScanner(std::string_view text) : text_(text) {}
    /// Reads the next tag with the text after it. Returns false at the end.
    bool Next(OfxToken& token);

private:
    struct Tag {
        OfxToken token{};
        std::size_t end = 0;  ///< offset after it
    };
    bool ReadTag(std::size_t at, Tag& tag) const;
    [[nodiscard]] std::size_t EndOfAttributes(std::size_t at) const;
    bool FindTag(std::size_t from, Tag& tag);
    std::size_t SkipMarkup(std::size_t at);
    std::size_t After(std::string_view end, std::size_t from, bool& missing);

    std::string_view text_;
    Tag next_;
    bool started_ = false;
    bool more_ = false;
    // Set once there is no further end of the kind, so that no part is searched twice.
    bool noCommentEnd_ = false;
    bool noSectionEnd_ = false;
    bool noInstructionEnd_ = false;
    bool noDeclarationEnd_ = false;
};

}  // namespace clb
