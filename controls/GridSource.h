// The sources of a grid's rows.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "base/Value.h"
#include "engine/rows/Recordset.h"

namespace clb {

/// A source of data rows: rows of fields, both numbered from 0, which are read by number and
/// written one row at a time.
class IGridSource {
public:
    /// A field's number and what is written into it.
    using Change = std::pair<std::size_t, Value>;

    virtual ~IGridSource() = default;
    [[nodiscard]] virtual bool IsOpen() const = 0;
    [[nodiscard]] virtual const std::vector<Field>& Fields() const = 0;
    [[nodiscard]] virtual std::size_t Count() const = 0;
    /// Valid until the next call that changes or reads another row.
    [[nodiscard]] virtual const Value& At(std::size_t row, std::size_t field) const = 0;
    /// Identity of a row that survives reading the rows again; 0 for none.
    [[nodiscard]] virtual std::size_t Identity(std::size_t row) const = 0;
    /// Grows whenever the rows were replaced as a whole.
    [[nodiscard]] virtual std::uint64_t Generation() const = 0;
    /// Reads the rows again.
    virtual void Requery() = 0;
    /// Reads the stored values of a row again. False if the row is gone.
    virtual bool Reread(std::size_t row) = 0;
    /// Writes the changed fields of a row; Count() for the row adds one. Returns the row's number.
    /// After an error nothing is written.
    virtual std::size_t Save(std::size_t row, const std::vector<Change>& changes) = 0;
    virtual void Delete(std::size_t row) = 0;
};

/// The rows of an open result set, which is borrowed.
class RecordsetSource : public IGridSource {
public:
    explicit RecordsetSource(Recordset& records) : records_(records) {}

    [[nodiscard]] bool IsOpen() const override { return records_.IsOpen(); }
    [[nodiscard]] const std::vector<Field>& Fields() const override { return records_.Fields(); }
    [[nodiscard]] std::size_t Count() const override
    {
        return static_cast<std::size_t>(records_.RecordCount());
    }
    [[nodiscard]] const Value& At(std::size_t row, std::size_t field) const override
    {
        return records_.At(row, field);
    }
    [[nodiscard]] std::size_t Identity(std::size_t row) const override
    {
        return records_.Identity(row);
    }
    [[nodiscard]] std::uint64_t Generation() const override { return records_.Generation(); }
    void Requery() override { records_.Requery(); }
    bool Reread(std::size_t row) override;
    std::size_t Save(std::size_t row, const std::vector<Change>& changes) override;
    void Delete(std::size_t row) override;

private:
    Recordset& records_;
};

/// Rows in memory, for a grid that shows no table. Fill it, then Show it.
class GridArray : public IGridSource {
public:
    /// show binds the grid that the array belongs to.
    explicit GridArray(std::function<void()> show) : show_(std::move(show)) {}

    /// Replaces the fields; all rows go.
    void Fields(std::vector<Field> fields);
    /// Appends a row. Missing values at its end are null. Throws TypeMismatch() or Overflow() if a
    /// field's type does not hold its value, and RuntimeError (SubscriptOutOfRange) if there are
    /// more values than fields.
    void Add(const std::vector<Value>& values);
    void Clear();
    /// Makes the grid show these rows instead of what it showed before.
    void Show() { show_(); }

    [[nodiscard]] bool IsOpen() const override { return true; }
    [[nodiscard]] const std::vector<Field>& Fields() const override { return fields_; }
    [[nodiscard]] std::size_t Count() const override { return rows_.size(); }
    [[nodiscard]] const Value& At(std::size_t row, std::size_t field) const override;
    [[nodiscard]] std::size_t Identity(std::size_t row) const override;
    [[nodiscard]] std::uint64_t Generation() const override { return generation_; }
    void Requery() override {}
    bool Reread(std::size_t row) override { return row < rows_.size(); }
    std::size_t Save(std::size_t row, const std::vector<Change>& changes) override;
    void Delete(std::size_t row) override;

private:
    struct Row {
        std::size_t identity = 0;
        std::vector<Value> values;
    };
    Row NewRow();
    [[nodiscard]] const Row& RowAt(std::size_t row) const;
    void Write(Row& row, std::size_t field, const Value& value) const;

    std::function<void()> show_;
    std::vector<Field> fields_;
    std::vector<Row> rows_;
    std::size_t lastIdentity_ = 0;
    std::uint64_t generation_ = 0;
};

}  // namespace clb
