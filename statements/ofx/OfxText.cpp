#include "statements/ofx/OfxText.h"

#include "statements/ofx/Entities.h"

namespace clb {
namespace {

constexpr char32_t kNoBreakSpace = 0xA0;

/// Collects a text, each run of blanks as one space.
class Collected {
public:
    void Add(char c)
    {
        if (IsBlank(c)) {
            blank_ = !text_.empty();
            return;
        }
        if (blank_)
            text_ += ' ';
        blank_ = false;
        text_ += c;
    }
    void Add(std::string_view text)
    {
        for (const char c : text)
            Add(c);
    }
    void AddCharacter(char32_t code)
    {
        if (code < 0x80) {
            Add(static_cast<char>(code));
        } else if (code < 0x800) {
            AddBytes(0xC0 | code >> 6U, 1, code);
        } else if (code < 0x10000) {
            AddBytes(0xE0 | code >> 12U, 2, code);
        } else {
            AddBytes(0xF0 | code >> 18U, 3, code);
        }
    }
    std::string Take() { return std::move(text_); }

private:
    void AddBytes(char32_t first, unsigned more, char32_t code)
    {
        Add(static_cast<char>(first));
        while (more > 0)
            Add(static_cast<char>(0x80U | (code >> 6U * --more & 0x3FU)));
    }

    std::string text_;
    bool blank_ = false;
};

/// Reads the character that a reference means. One that gives '&' may begin another.
Entity ReadNested(std::string_view text)
{
    Entity entity = ReadEntity(text);
    while (entity.size != 0 && entity.code == U'&') {
        // "&amp;" before "lt;": the part after the reference, read as if '&' was before it.
        const std::string inner = "&" + std::string(text.substr(entity.size, 12));
        const Entity next = ReadEntity(inner);
        if (next.size == 0)
            break;
        entity = {next.code, entity.size + next.size - 1};
    }
    return entity;
}

/// Adds a text without sections and comments.
void AddDecoded(Collected& collected, std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const Entity entity = text[i] == '&' ? ReadNested(text.substr(i)) : Entity{};
        if (entity.size == 0)
            collected.Add(text[i++]);
        else
            collected.AddCharacter(entity.code == kNoBreakSpace ? U' ' : entity.code);
        i += entity.size;
    }
}

struct Section {
    std::size_t begin = 0;  ///< of the markup
    std::size_t end = 0;    ///< after it
    std::string_view held;  ///< text of a CDATA section; empty for a comment
};

/// Finds the next section or comment that has an end. begin is the text's size if there is none.
Section FindSection(std::string_view text)
{
    const auto between = [text](std::size_t at, std::string_view start, std::string_view end) {
        const std::size_t close = text.find(end, at + start.size());
        if (close == std::string_view::npos)
            return Section{text.size(), text.size(), {}};
        const std::size_t inside = at + start.size();
        return Section{at, close + end.size(), text.substr(inside, close - inside)};
    };
    for (std::size_t at = text.find("<!"); at != std::string_view::npos;
         at = text.find("<!", at + 2)) {
        if (text.substr(at).starts_with(kSectionStart))
            return between(at, kSectionStart, kSectionEnd);
        if (text.substr(at).starts_with("<!--")) {
            Section comment = between(at, "<!--", "-->");
            comment.held = {};
            return comment;
        }
    }
    return {text.size(), text.size(), {}};
}

}  // namespace

std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string OfxText(std::string_view raw)
{
    Collected collected;
    while (!raw.empty()) {
        const Section section = FindSection(raw);
        AddDecoded(collected, raw.substr(0, section.begin));
        collected.Add(section.held);
        raw.remove_prefix(section.end);
    }
    return collected.Take();
}

}  // namespace clb
