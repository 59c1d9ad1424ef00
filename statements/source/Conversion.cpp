#include "statements/source/Conversion.h"

#include <iconv.h>

#include <array>
#include <cerrno>

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
        std::array<char, 65536> block{};
        char* in = const_cast<char*>(bytes.data());  // not written to
        std::size_t left = bytes.size();
        for (;;) {
            char* out = block.data();
            std::size_t room = block.size();
            const std::size_t result = iconv(open_, &in, &left, &out, &room);
            const int error = errno;
            text.append(block.data(), block.size() - room);
            bytes.remove_prefix(bytes.size() - left);
            if (result != static_cast<std::size_t>(-1))
                return true;
            if (error != E2BIG)
                return false;
        }
    }

private:
    iconv_t open_;
};

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
    return converted;
}

}  // namespace clb
