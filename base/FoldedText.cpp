#include "base/FoldedText.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace clb {
namespace {

/// A letter that does not decompose, or a mark of typography, and what a keyboard has for it.
struct Plain {
    std::int32_t character;
    std::string_view plain;
};

/// In the order of their numbers. Capitals are folded before.
constexpr std::array kPlain = {
    Plain{0x00E6, "ae"}, Plain{0x00F0, "d"},  Plain{0x00F8, "o"},  Plain{0x00FE, "th"},
    Plain{0x0111, "d"},  Plain{0x0127, "h"},  Plain{0x0131, "i"},  Plain{0x0138, "k"},
    Plain{0x0142, "l"},  Plain{0x014B, "n"},  Plain{0x0153, "oe"}, Plain{0x0167, "t"},
    Plain{0x0180, "b"},  Plain{0x0192, "f"},  Plain{0x019A, "l"},  Plain{0x01B6, "z"},
    Plain{0x01E5, "g"},  Plain{0x0237, "j"},  Plain{0x023C, "c"},  Plain{0x0247, "e"},
    Plain{0x0249, "j"},  Plain{0x024D, "r"},  Plain{0x024F, "y"},  Plain{0x0253, "b"},
    Plain{0x0256, "d"},  Plain{0x0257, "d"},  Plain{0x0268, "i"},  Plain{0x0272, "n"},
    Plain{0x0275, "o"},  Plain{0x0289, "u"},  Plain{0x02BC, "'"},  Plain{0x2010, "-"},
    Plain{0x2011, "-"},  Plain{0x2012, "-"},  Plain{0x2013, "-"},  Plain{0x2014, "-"},
    Plain{0x2015, "-"},  Plain{0x2018, "'"},  Plain{0x2019, "'"},  Plain{0x201A, "'"},
    Plain{0x201B, "'"},  Plain{0x201C, "\""}, Plain{0x201D, "\""}, Plain{0x201E, "\""},
    Plain{0x201F, "\""}, Plain{0x2212, "-"},  Plain{0x2C65, "a"},  Plain{0x2C66, "t"}};

/// A typed accent that is used as an apostrophe. It would decompose to a space.
constexpr std::int32_t kAcute = 0xB4;

bool IsAccent(std::int32_t character)
{
    constexpr int kNone = 0;
    constexpr int kVirama = 9;  // joins letters, so it makes another one of them
    if (character == 0x034F || (character >= 0xFE00 && character <= 0xFE0F) ||
        (character >= 0xE0100 && character <= 0xE01EF))
        return true;  // they only choose the form of the letter before
    const utf8proc_property_t& property = *utf8proc_get_property(character);
    if (property.category == UTF8PROC_CATEGORY_ME)
        return true;
    return (property.category == UTF8PROC_CATEGORY_MN ||
            property.category == UTF8PROC_CATEGORY_MC) &&
           property.combining_class != kNone && property.combining_class != kVirama;
}

void Append(std::string& text, std::int32_t character)
{
    utf8proc_uint8_t buffer[4];
    const auto length = utf8proc_encode_char(character, buffer);
    text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
}

/// Appends one character that has no case and does not decompose.
void AppendPart(std::string& folded, std::int32_t character)
{
    if (FoldsToSpace(static_cast<char32_t>(character))) {
        folded += ' ';
        return;
    }
    if (IsAccent(character) || utf8proc_category(character) == UTF8PROC_CATEGORY_CF)
        return;
    const auto* const found = std::lower_bound(
        kPlain.begin(), kPlain.end(), character,
        [](const Plain& letter, std::int32_t sought) { return letter.character < sought; });
    if (found != kPlain.end() && found->character == character)
        folded += found->plain;
    else
        Append(folded, character);
}

void AppendCharacter(std::string& folded, std::int32_t character)
{
    constexpr std::size_t kLongest = 32;  // 18 characters is the most that any decomposes to
    if (character == kAcute) {
        folded += '\'';
        return;
    }
    std::array<utf8proc_int32_t, kLongest> parts{};
    int unused = 0;
    const auto count = utf8proc_decompose_char(
        character, parts.data(), static_cast<utf8proc_ssize_t>(parts.size()),
        static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD),
        &unused);
    if (count < 0 || static_cast<std::size_t>(count) > parts.size())
        return Append(folded, character);
    for (std::size_t part = 0; part < static_cast<std::size_t>(count); ++part)
        AppendPart(folded, parts[part]);
}

constexpr std::int32_t kTwoBytes = 0x800;  ///< characters below it have at most two bytes

/// The folded characters of at most two bytes, which all European texts are made of.
const std::array<std::string, kTwoBytes>& KnownCharacters()
{
    static const auto known = [] {
        std::array<std::string, kTwoBytes> folded;
        for (std::int32_t character = 0; character < kTwoBytes; ++character)
            AppendCharacter(folded[static_cast<std::size_t>(character)], character);
        return folded;
    }();
    return known;
}

/// Appends the character at the beginning of the text, which is not ASCII; returns its size.
std::size_t AppendFirst(std::string& folded, std::string_view text)
{
    utf8proc_int32_t character = 0;
    const auto size = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &character);
    if (size < 1) {
        folded += text.front();
        return 1;
    }
    if (character < kTwoBytes)
        folded += KnownCharacters()[static_cast<std::size_t>(character)];
    else if (character >= 0x4E00 && character <= 0x9FFF)
        folded += text.substr(0, static_cast<std::size_t>(size));  // Chinese characters
    else
        AppendCharacter(folded, character);
    return static_cast<std::size_t>(size);
}

constexpr char FoldedAscii(char c)
{
    if (c >= 'A' && c <= 'Z')
        return static_cast<char>(c + 32);
    return (c >= 0 && c < ' ') || c == 0x7F ? ' ' : c;
}

bool IsAsciiByte(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

constexpr std::uint64_t EachByte(std::uint64_t byte)
{
    return byte * 0x0101010101010101;
}
constexpr std::uint64_t kHighBits = EachByte(0x80);

/// Whether all eight bytes are ASCII, none of them a control character.
constexpr bool IsPlainAscii(std::uint64_t bytes)
{
    const std::uint64_t fromSpace = (bytes & ~kHighBits) + EachByte(0x80 - ' ');
    const std::uint64_t asDelete = (bytes & ~kHighBits) + EachByte(0x80 - 0x7F);
    return ((bytes | ~fromSpace | asDelete) & kHighBits) == 0;
}

/// Makes small letters of eight bytes of ASCII.
constexpr std::uint64_t SmallLetters(std::uint64_t bytes)
{
    const std::uint64_t fromA = bytes + EachByte(0x80 - 'A');
    const std::uint64_t afterZ = bytes + EachByte(0x80 - 'Z' - 1);
    return bytes | (((fromA ^ afterZ) & kHighBits) >> 2U);
}

/// Appends the ASCII at the beginning of the text; returns its size. Books have millions of texts,
/// so eight bytes are folded together.
std::size_t AppendAscii(std::string& folded, std::string_view text)
{
    const std::size_t before = folded.size();
    folded.resize(before + text.size());
    char* const out = folded.data() + before;
    std::size_t at = 0;
    for (std::uint64_t eight = 0; at + sizeof(eight) <= text.size(); at += sizeof(eight)) {
        std::memcpy(&eight, text.data() + at, sizeof(eight));
        if (!IsPlainAscii(eight))
            break;
        eight = SmallLetters(eight);
        std::memcpy(out + at, &eight, sizeof(eight));
    }
    for (; at < text.size() && IsAsciiByte(text[at]); ++at)
        out[at] = FoldedAscii(text[at]);
    folded.resize(before + at);
    return at;
}

/// A text with the place of each folded byte in it.
struct Traced {
    std::string folded;
    std::vector<TextSpan> sources;  ///< one for each byte

    explicit Traced(std::string_view text)
    {
        for (std::size_t at = 0; at < text.size();) {
            std::size_t size = 1;
            if (IsAsciiByte(text[at]))
                folded += FoldedAscii(text[at]);
            else
                size = AppendFirst(folded, text.substr(at));
            if (folded.size() == sources.size() && !sources.empty())
                Extend(at + size);
            sources.resize(folded.size(), {at, size});
            at += size;
        }
    }

private:
    /// What folds to nothing belongs to the character before.
    void Extend(std::size_t end)
    {
        const std::size_t begin = sources.back().at;
        for (auto source = sources.rbegin(); source != sources.rend() && source->at == begin;
             ++source)
            source->size = end - begin;
    }
};

}  // namespace

bool FoldsToSpace(char32_t character)
{
    if (character < 0x80)
        return character <= U' ' || character == 0x7F;
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
        case UTF8PROC_CATEGORY_ZS:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
        case UTF8PROC_CATEGORY_CC: return true;
        default: return false;
    }
}

void AppendFolded(std::string& folded, std::string_view text)
{
    while (!text.empty())
        text.remove_prefix(IsAsciiByte(text.front()) ? AppendAscii(folded, text)
                                                     : AppendFirst(folded, text));
}

std::string Folded(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    AppendFolded(folded, text);
    return folded;
}

std::vector<TextSpan> FindFolded(std::string_view text, std::string_view word)
{
    std::vector<TextSpan> spans;
    if (word.empty())
        return spans;
    const Traced traced(text);
    for (std::size_t at = traced.folded.find(word); at != std::string::npos;
         at = traced.folded.find(word, at + 1)) {
        const TextSpan& first = traced.sources[at];
        const TextSpan& last = traced.sources[at + word.size() - 1];
        if (spans.empty() || first.at >= spans.back().at + spans.back().size)
            spans.push_back({first.at, last.at + last.size - first.at});
    }
    return spans;
}

}  // namespace clb
