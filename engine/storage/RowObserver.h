// Lets somebody know which rows queries have changed, without looking at them.
#pragma once
#include <cstdint>
#include <string_view>

namespace clb {

/// Is told which rows queries of one connection change, those of triggers included. For what is
/// kept in memory of them: after each call the rows must be read again. Must not run a query.
class IRowObserver {
public:
    virtual ~IRowObserver() = default;
    /// A query is about to change a row. before and after are its identities, which differ if the
    /// query changes them; for a row that is inserted or deleted one of them means nothing.
    /// Nobody reports when a query that fails puts rows back: they may be as they were.
    virtual void RowChanging(std::string_view table, std::int64_t before, std::int64_t after) = 0;
    /// A query has made, changed or removed a table with this name, or an index of it.
    virtual void TableChanged(std::string_view table) = 0;
    /// What was changed has become durable.
    virtual void Committed() noexcept = 0;
    /// What was changed since the last Committed or Lost is taken back.
    virtual void Lost() noexcept = 0;
};

}  // namespace clb
