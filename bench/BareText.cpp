#include "bench/BareText.h"

#include <fstream>
#include <stdexcept>

namespace clb {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    std::string bytes(in ? static_cast<std::size_t>(in.tellg()) : 0, '\0');
    in.seekg(0);
    if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw std::runtime_error("cannot read " + path);
    return bytes;
}

std::int64_t Digits(std::string_view text)
{
    std::int64_t number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            throw std::runtime_error("no number: " + std::string(text));
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::int64_t Amount(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    const std::size_t point = text.find('.');
    std::int64_t amount = Digits(text.substr(0, point)) * 10000;
    if (point != std::string_view::npos) {
        const std::string_view decimals = text.substr(point + 1, 4);
        std::int64_t part = Digits(decimals);
        for (std::size_t n = decimals.size(); n < 4; ++n)
            part *= 10;
        amount += part;
    }
    return negative ? -amount : amount;
}

}  // namespace clb
