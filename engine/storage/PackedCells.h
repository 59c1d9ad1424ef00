// Cells as bytes, so that a row can be kept and put back exactly as the storage held it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

struct sqlite3_value;

namespace clb {

class Query;

/// Bytes that are not a text.
struct Blob {
    std::string bytes;
    bool operator==(const Blob&) const = default;
};

/// What the storage holds in one cell, whatever its column declares.
using StoredCell = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

/// Numbers and cells as bytes. A number takes one byte for each seven bits (LEB128). A cell is one
/// byte for its kind and then its value: an integer with its sign in the lowest bit, eight bytes of
/// a binary fraction, or the length and the bytes of a text or a blob.
namespace packed {

void AppendNumber(std::string& bytes, std::uint64_t number);
/// A number that may be negative; small ones are short.
void AppendSigned(std::string& bytes, std::int64_t number);
/// Eight bytes, the lowest first.
void AppendFixed(std::string& bytes, std::uint64_t number);
/// The length and the bytes.
void AppendText(std::string& bytes, std::string_view text);
void AppendCell(std::string& bytes, const StoredCell& cell);
/// A cell as the storage hands it out. Throws std::bad_alloc if the storage has no memory.
void AppendCell(std::string& bytes, sqlite3_value* value);

/// Reads what was appended, in the same order. All functions throw BrokenBytes at the end and for
/// bytes that were never appended.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}
    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    std::uint64_t Number();
    std::int64_t Signed();
    std::uint64_t Fixed();
    std::string_view Text();
    StoredCell Cell();
    /// The bytes of one cell, without decoding them.
    std::string_view CellBytes();

private:
    std::string_view Take(std::uint64_t count);

    std::string_view rest_;
};

/// The bytes are not what was once appended.
struct BrokenBytes {};

/// A number for the bytes of a row's cells: the 64-bit FNV-1a hash. A binary fraction that is whole
/// counts as the integer, because the storage may hand out either for the same cell.
std::uint64_t HashOfCells(std::string_view cells);

/// A number for bytes and for the ones before them, to tell whether they were damaged: 0 to
/// 2^31 - 1. before: the number of the bytes before them; 0: there are none.
std::int64_t Checksum(std::int64_t before, std::string_view bytes);

}  // namespace packed
}  // namespace clb
