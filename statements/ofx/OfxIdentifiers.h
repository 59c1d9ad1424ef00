// The identifiers that a bank gives its transactions in one file.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "statements/ofx/OfxWalk.h"

namespace clb {

/// How a file uses the identifier of a row.
enum class IdentifierUse : std::uint8_t {
    None,      ///< the row has no identifier
    Once,      ///< no other row has it
    Again,     ///< rows of the same date, amount and text have it, and no others
    Reused,    ///< different rows have it, so it identifies none of them
    Corrected  ///< another row replaces or deletes this one
};

/// Finds out how a file uses its identifiers. Keeps two hashes of each row until it is settled, and
/// then only those of the identifiers that occur more than once.
class OfxIdentifiers {
public:
    /// Takes a row. Statements are numbered from 0.
    void Add(std::size_t statement, const OfxEntry& entry);
    /// Call once after all rows, with a hash of each statement's account: identifiers of different
    /// accounts have nothing to do with each other.
    void Settle(const std::vector<std::size_t>& accounts);

    [[nodiscard]] IdentifierUse UseOf(const OfxEntry& entry, std::size_t account) const;
    /// A number for the row's identifier in its account.
    [[nodiscard]] static std::size_t KeyOf(const OfxEntry& entry, std::size_t account);

private:
    struct Row {
        std::size_t statement = 0;
        std::size_t identifier = 0;
        std::size_t content = 0;
    };
    void SettleGroup(const Row* begin, const Row* end);

    std::vector<Row> rows_;
    std::vector<Row> corrections_;
    // Sorted.
    std::vector<std::size_t> again_;
    std::vector<std::size_t> reused_;
    std::vector<std::size_t> corrected_;
};

}  // namespace clb
