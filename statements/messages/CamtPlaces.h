// Where the entries of a camt file are.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "statements/messages/CamtOutline.h"

namespace clb {

/// Keeps the order of statements and entries of a file as numbers, so that its markup is gone
/// through once. The text is borrowed.
class CamtPlaces {
public:
    explicit CamtPlaces(std::string_view text) : text_(text) {}

    void Begin(CamtKind kind);
    /// Throws NotAStatement for an entry of 4 GB.
    void Entry(const CamtEntryPart& part);
    void End();
    void Broken(std::size_t offset, bool inEntry);

    /// Brings them to parts in their order. Accounts and balances are not kept.
    void Read(ICamtParts& parts) const;

private:
    /// Of a part, from the entry's first byte on. Halves the memory of offsets in the file.
    struct Span {
        std::uint32_t begin = 0;
        std::uint32_t size = 0;
    };
    struct Place {
        std::size_t begin = 0;
        std::uint32_t size = 0;
        std::array<Span, 7> pieces{};
    };
    /// What comes before the entry with this number.
    struct Mark {
        enum class Kind : std::uint8_t { Begin, End, Broken, BrokenEntry };
        Kind kind = Kind::Begin;
        CamtKind message = CamtKind::Statement;
        std::size_t entry = 0;
        std::size_t offset = 0;
    };
    [[nodiscard]] CamtEntryPart PartOf(const Place& place) const;
    static void Call(const Mark& mark, ICamtParts& parts);

    std::string_view text_;
    std::vector<Place> entries_;
    std::vector<Mark> marks_;
};

}  // namespace clb
