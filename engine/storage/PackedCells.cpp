#include "engine/storage/PackedCells.h"

#include <sqlite3.h>

#include <bit>
#include <cmath>
#include <new>

namespace clb::packed {
namespace {

enum Kind : char { kNull = 0, kInteger = 1, kReal = 2, kText = 3, kBlob = 4 };

constexpr int kBitsOfByte = 7;
constexpr std::uint64_t kLowBits = 0x7F;
constexpr std::uint64_t kMore = 0x80;

/// It fits in a Long of the dialect.
constexpr std::uint64_t kLargestChecksum = 0x7FFFFFFF;

/// Whole numbers up to here are the same as a binary fraction and as an integer.
constexpr double kMostWhole = 9007199254740992.0;

void AppendReal(std::string& bytes, double number)
{
    bytes.push_back(kReal);
    AppendFixed(bytes, std::bit_cast<std::uint64_t>(number));
}

void AppendInteger(std::string& bytes, std::int64_t number)
{
    bytes.push_back(kInteger);
    AppendSigned(bytes, number);
}

void AppendBytes(std::string& bytes, Kind kind, std::string_view content)
{
    bytes.push_back(kind);
    AppendText(bytes, content);
}

class Fnv {
public:
    void Add(std::string_view bytes)
    {
        for (const char byte : bytes)
            hash_ = (hash_ ^ static_cast<unsigned char>(byte)) * kPrime;
    }
    [[nodiscard]] std::uint64_t Hash() const { return hash_; }

private:
    static constexpr std::uint64_t kPrime = 0x100000001B3;
    std::uint64_t hash_ = 0xCBF29CE484222325;
};

}  // namespace

void AppendNumber(std::string& bytes, std::uint64_t number)
{
    for (; number > kLowBits; number >>= kBitsOfByte)
        bytes += static_cast<char>((number & kLowBits) | kMore);
    bytes += static_cast<char>(number);
}

void AppendSigned(std::string& bytes, std::int64_t number)
{
    const auto raw = static_cast<std::uint64_t>(number);
    AppendNumber(bytes, number < 0 ? ~(raw << 1) : raw << 1);
}

void AppendFixed(std::string& bytes, std::uint64_t number)
{
    for (std::size_t i = 0; i < sizeof number; ++i, number >>= 8)
        bytes += static_cast<char>(number & 0xFF);
}

void AppendText(std::string& bytes, std::string_view text)
{
    AppendNumber(bytes, text.size());
    bytes += text;
}

void AppendCell(std::string& bytes, const StoredCell& cell)
{
    if (const auto* integer = std::get_if<std::int64_t>(&cell))
        AppendInteger(bytes, *integer);
    else if (const auto* real = std::get_if<double>(&cell))
        AppendReal(bytes, *real);
    else if (const auto* text = std::get_if<std::string>(&cell))
        AppendBytes(bytes, kText, *text);
    else if (const auto* blob = std::get_if<Blob>(&cell))
        AppendBytes(bytes, kBlob, blob->bytes);
    else
        bytes.push_back(kNull);
}

void AppendCell(std::string& bytes, sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    switch (type) {
        case SQLITE_INTEGER: AppendInteger(bytes, sqlite3_value_int64(value)); break;
        case SQLITE_FLOAT: AppendReal(bytes, sqlite3_value_double(value)); break;
        case SQLITE_TEXT:
        case SQLITE_BLOB: {
            // The text first: asking for it may change the number of its bytes.
            const void* const content =
                type == SQLITE_TEXT ? sqlite3_value_text(value) : sqlite3_value_blob(value);
            const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
            if (content == nullptr && (type == SQLITE_TEXT || size > 0))
                throw std::bad_alloc();
            AppendBytes(bytes, type == SQLITE_TEXT ? kText : kBlob,
                        {static_cast<const char*>(content), size});
            break;
        }
        default: bytes.push_back(kNull);
    }
}

std::string_view Reader::Take(std::uint64_t count)
{
    if (count > rest_.size())
        throw BrokenBytes();
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
}

std::uint64_t Reader::Number()
{
    std::uint64_t number = 0;
    for (int shift = 0; shift < 64; shift += kBitsOfByte) {
        const auto byte = static_cast<unsigned char>(Take(1).front());
        number |= (byte & kLowBits) << shift;
        if (byte < kMore)
            return number;
    }
    throw BrokenBytes();
}

std::int64_t Reader::Signed()
{
    const std::uint64_t raw = Number();
    return static_cast<std::int64_t>((raw & 1) != 0 ? ~(raw >> 1) : raw >> 1);
}

std::uint64_t Reader::Fixed()
{
    std::uint64_t number = 0;
    const std::string_view bytes = Take(sizeof number);
    for (std::size_t i = 0; i < sizeof number; ++i)
        number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return number;
}

std::string_view Reader::Text()
{
    return Take(Number());
}

StoredCell Reader::Cell()
{
    switch (Take(1).front()) {
        case kNull: return std::monostate();
        case kInteger: return Signed();
        case kReal: return std::bit_cast<double>(Fixed());
        case kText: return std::string(Text());
        case kBlob: return Blob{std::string(Text())};
        default: throw BrokenBytes();
    }
}

std::string_view Reader::CellBytes()
{
    const std::string_view from = rest_;
    switch (Take(1).front()) {
        case kNull: break;
        case kInteger: Number(); break;
        case kReal: Fixed(); break;
        case kText:
        case kBlob: Text(); break;
        default: throw BrokenBytes();
    }
    return from.substr(0, from.size() - rest_.size());
}

std::uint64_t HashOfCells(std::string_view cells)
{
    Fnv hash;
    std::string whole;
    for (Reader reader(cells); !reader.AtEnd();) {
        const std::string_view bytes = reader.CellBytes();
        if (bytes.front() != kReal) {
            hash.Add(bytes);
            continue;
        }
        const double real = std::get<double>(Reader(bytes).Cell());
        if (real != std::trunc(real) || std::abs(real) > kMostWhole) {
            hash.Add(bytes);
            continue;
        }
        whole.clear();
        AppendInteger(whole, static_cast<std::int64_t>(real));
        hash.Add(whole);
    }
    return hash.Hash();
}

std::int64_t Checksum(std::int64_t before, std::string_view bytes)
{
    Fnv hash;
    std::string start;
    AppendFixed(start, static_cast<std::uint64_t>(before));
    hash.Add(start);
    hash.Add(bytes);
    return static_cast<std::int64_t>((hash.Hash() ^ (hash.Hash() >> 32)) & kLargestChecksum);
}

}  // namespace clb::packed
