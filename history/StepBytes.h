// The changes of a step as bytes, the way they are stored.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/storage/PackedCells.h"
#include "history/ChangeLog.h"
#include "history/TableShape.h"

namespace clb {

/// Turns what a log holds into bytes. For each table: its name, the number of its columns, the
/// fingerprint of their names, the rows and an end. A row is its kind, its identity as the distance
/// from the row before, and
///   1  rows that are new: how many with neighbouring identities, and a hash for each;
///   2  written: its hash, and the cells that it had with their columns;
///   3  gone: the cells that it had.
class StepWriter : public IChangesVisitor {
public:
    explicit StepWriter(TableShapes& shapes) : shapes_(&shapes) {}

    void Table(const std::string& name, int columns) override;
    void Row(const RowChanged& row) override;
    /// The bytes of all tables; empty without rows. To be called once.
    std::string Finish();
    [[nodiscard]] std::int64_t Rows() const { return rows_; }
    /// How many of the rows are of tables other than the program's own books.
    [[nodiscard]] std::int64_t RowsOfBook() const { return rowsOfBook_; }

private:
    void EndRun();
    void EndTable();
    void AppendIdentity(std::int64_t row);

    TableShapes* shapes_;
    std::string bytes_;
    std::string run_;  ///< hashes of new neighbouring rows
    std::int64_t runStart_ = 0;
    std::uint64_t runLength_ = 0;
    std::int64_t last_ = 0;
    std::int64_t rows_ = 0;
    std::int64_t rowsOfBook_ = 0;
    bool inTable_ = false;
    bool ofBook_ = false;  ///< the table is none of the program's own books
};

/// Reads such bytes. All functions throw packed::BrokenBytes if they are not.
class StepReader {
public:
    explicit StepReader(std::string_view bytes) : reader_(bytes) {}

    /// Goes to the next table; the one before has been read to its end. False at the end.
    bool NextTable();
    [[nodiscard]] const std::string& Table() const { return table_; }
    [[nodiscard]] int Columns() const { return columns_; }
    [[nodiscard]] std::uint64_t Fingerprint() const { return fingerprint_; }
    /// The next row of the table; false at its end. The cells are good as long as the bytes are.
    bool NextRow(RowChanged& row);

private:
    void ReadCells(RowChanged& row);

    packed::Reader reader_;
    std::string table_;
    int columns_ = 0;
    std::uint64_t fingerprint_ = 0;
    std::int64_t last_ = 0;
    std::uint64_t runLeft_ = 0;
};

/// How many rows of a part are also in earlier parts of its step. Throws packed::BrokenBytes.
std::int64_t KnownRows(const std::vector<std::string>& earlier, std::string_view part);

}  // namespace clb
