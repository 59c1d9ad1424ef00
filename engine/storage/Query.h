// A prepared query of the storage: its parameters and the cells of the row that it reached.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "engine/storage/PackedCells.h"

struct sqlite3_stmt;

namespace clb {

/// One prepared query of the storage. It may outlive its Database, but must not run after that.
class Query {
public:
    Query() = default;
    explicit Query(sqlite3_stmt* raw) : raw_(raw) {}

    explicit operator bool() const { return raw_ != nullptr; }
    [[nodiscard]] sqlite3_stmt* Raw() const { return raw_.get(); }

    /// Binds a value to a 1-based parameter. The value is not copied: it must live until the query
    /// is reset. Money is bound scaled, dates as ISO text, booleans as 0 or 1. This and the next
    /// two functions throw EngineError if the value is too big.
    void Bind(int parameter, const Value& value);
    void Bind(int parameter, const Value&& value) = delete;
    /// Binds the values to the first parameters. They must live as long.
    void BindAll(std::span<const Value> values);
    void BindText(int parameter, std::string_view text);   ///< copied
    void BindBlob(int parameter, std::string_view bytes);  ///< not copied: as a value
    void BindInteger(int parameter, std::int64_t value);
    /// A cell that was taken from the storage before; copied.
    void BindCell(int parameter, const StoredCell& cell);
    [[nodiscard]] int ParameterCount() const;

    /// Returns the cell of a 0-based column in the row that Step reached. Throws EngineError
    /// (TypeMismatch) if the cell does not hold a value of the type. Other programs can put
    /// anything into any column, and a text or a binary fraction is never converted to an amount.
    [[nodiscard]] Value Get(int column, FieldType type) const;
    /// Describes the contents of the cell in words, such as "the text '12,50'". A long text is cut.
    [[nodiscard]] std::string Describe(int column) const;
    [[nodiscard]] std::string Text(int column) const;
    /// The same without a copy. Valid until the query moves on or is reset.
    [[nodiscard]] std::string_view TextView(int column) const;
    [[nodiscard]] std::int64_t Integer(int column) const;
    /// The cell as it is, whatever its column declares.
    [[nodiscard]] StoredCell Cell(int column) const;
    void Reset() noexcept;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* raw) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> raw_;
};

/// Resets a query at the end of a block, so that it does not stay open.
class ResetAtExit {
public:
    explicit ResetAtExit(Query& query) : query_(&query) {}
    ~ResetAtExit() { query_->Reset(); }
    ResetAtExit(const ResetAtExit&) = delete;
    ResetAtExit& operator=(const ResetAtExit&) = delete;

private:
    Query* query_;
};

}  // namespace clb
