#include "statements/source/Conversion.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

class Converter {
public:
    explicit Converter(const std::string& encoding) : open_(iconv_open("UTF-8", encoding.c_str()))
    {
    }
    ~Converter()
    {
        if (IsKnown())
            iconv_close(open_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the library reports an error by this pointer
    [[nodiscard]] bool IsKnown() const { return open_ != reinterpret_cast<iconv_t>(-1); }

    /// Converts up to the next invalid place or the end. Takes what it converts off the bytes.
    /// Returns false at an invalid place.
    bool Next(std::string_view& bytes, std::string& text)
    {
        char* in = const_cast<char*>(bytes.data());  // not written to
        std::size_t left = bytes.size();
        for (;;) {
            char* out = block_.data();
            std::size_t room = block_.size();
            const std::size_t result = iconv(open_, &in, &left, &out, &room);
            const int error = errno;
            text.append(block_.data(), block_.size() - room);
            bytes.remove_prefix(bytes.size() - left);
            if (result != static_cast<std::size_t>(-1))
                return true;
            if (error != E2BIG)
                return false;
        }
    }

private:
    iconv_t open_;
    std::array<char, 65536> block_{};
};

/// Bytes of the valid character at the text's start; 0 if there is none.
std::size_t CharacterSize(std::string_view text)
{
    for (std::size_t size = 1; size <= std::min<std::size_t>(4, text.size()); ++size)
        if (IsValidUtf8(text.substr(0, size)))
            return size;
    return 0;
}

/// The library takes codes beyond Unicode for characters.
void ReplaceInvalid(Converted& converted)
{
    std::string valid;
    std::string_view rest = converted.text;
    while (!rest.empty()) {
        const std::size_t size = CharacterSize(rest);
        converted.invalid += size == 0 ? 1U : 0U;
        valid += size == 0 ? kReplacement : rest.substr(0, size);
        rest.remove_prefix(size == 0 ? 1 : size);
    }
    converted.text = valid;
}

}  // namespace

std::optional<Converted> Convert(std::string_view bytes, const std::string& encoding)
{
    Converter converter(encoding);
    if (!converter.IsKnown())
        return {};
    Converted converted;
    converted.text.reserve(bytes.size());
    while (!bytes.empty() && !converter.Next(bytes, converted.text)) {
        ++converted.invalid;
        converted.text += kReplacement;
        bytes.remove_prefix(1);
    }
    if (!IsValidUtf8(converted.text))
        ReplaceInvalid(converted);
    return converted;
}

}  // namespace clb
