#include "intake/KeptRows.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace clb {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18U;

/// Appends values to bytes.
class Packer {
public:
    explicit Packer(std::string& bytes) : bytes_(bytes) {}

    template <typename Plain>
    void Add(const Plain& value)
    {
        static_assert(std::is_trivially_copyable_v<Plain>);
        bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void Add(const std::string& text)
    {
        Number(text.size());
        bytes_ += text;
    }
    /// A number that is mostly small.
    void Number(std::size_t number)
    {
        constexpr std::size_t kDigit = 0x80;
        for (; number >= kDigit; number /= kDigit)
            bytes_ += static_cast<char>(number % kDigit + kDigit);
        bytes_ += static_cast<char>(number);
    }
    template <typename Plain>
    void Add(const std::optional<Plain>& value)
    {
        bytes_ += value ? '\1' : '\0';
        if (value)
            Add(*value);
    }

private:
    std::string& bytes_;
};

/// Takes them back in the same order.
class Unpacker {
public:
    explicit Unpacker(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }
    template <typename Plain>
    void Take(Plain& value)
    {
        static_assert(std::is_trivially_copyable_v<Plain>);
        std::memcpy(&value, bytes_.data(), sizeof value);
        bytes_.remove_prefix(sizeof value);
    }
    void Take(std::string& text)
    {
        const std::size_t size = Number();
        text.assign(bytes_.substr(0, size));
        bytes_.remove_prefix(size);
    }
    std::size_t Number()
    {
        std::size_t number = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto digit = static_cast<unsigned char>(bytes_.front());
            bytes_.remove_prefix(1);
            number |= std::size_t{digit & 0x7FU} << shift;
            if (digit < 0x80)
                return number;
        }
    }
    template <typename Plain>
    void Take(std::optional<Plain>& value)
    {
        const bool given = bytes_.front() != '\0';
        bytes_.remove_prefix(1);
        if (!given) {
            value.reset();
            return;
        }
        value.emplace();
        Take(*value);
    }

private:
    std::string_view bytes_;
};

void Pack(std::size_t place, const StatementRow& row, std::string& bytes)
{
    Packer packer(bytes);
    packer.Number(place);
    packer.Number(row.line);
    packer.Add(row.date);
    packer.Add(row.valueDate);
    packer.Add(row.amount);
    packer.Add(row.balance);
    for (const std::string* text : {&row.name, &row.text, &row.category, &row.checkNumber,
                                    &row.identifier, &row.sharedIdentifier})
        packer.Add(*text);
    packer.Number(row.pieces.size());
    for (const StatementPiece& piece : row.pieces) {
        packer.Add(piece.amount);
        packer.Add(piece.category);
        packer.Add(piece.text);
    }
}

std::size_t Unpack(Unpacker& packed, StatementRow& row)
{
    const std::size_t place = packed.Number();
    row.line = packed.Number();
    packed.Take(row.date);
    packed.Take(row.valueDate);
    packed.Take(row.amount);
    packed.Take(row.balance);
    for (std::string* text : {&row.name, &row.text, &row.category, &row.checkNumber,
                              &row.identifier, &row.sharedIdentifier})
        packed.Take(*text);
    row.pieces.resize(packed.Number());
    for (StatementPiece& piece : row.pieces) {
        packed.Take(piece.amount);
        packed.Take(piece.category);
        packed.Take(piece.text);
    }
    return place;
}

void ForEachIn(std::string_view block, StatementRow& row, const KeptRows::Take& take)
{
    for (Unpacker packed(block); !packed.AtEnd();) {
        const std::size_t place = Unpack(packed, row);
        take(place, row);
    }
}

}  // namespace

void KeptRows::Row(const StatementRow& row)
{
    survey_.Row(row);
    if (blocks_.empty() || blocks_.back().size() >= kBlock) {
        blocks_.emplace_back();
        blocks_.back().reserve(kBlock + kBlock / 16);
    }
    Pack(survey_.Place(), row, blocks_.back());
}

void KeptRows::ForEach(const Take& take) const
{
    StatementRow row;
    for (const std::string& block : blocks_)
        ForEachIn(block, row, take);
}

void KeptRows::HandOver(const Take& take)
{
    StatementRow row;
    for (; !blocks_.empty(); blocks_.pop_front())
        ForEachIn(blocks_.front(), row, take);
}

}  // namespace clb
