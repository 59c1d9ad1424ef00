// The lists with which the user says what the columns of a table hold.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "controls/Event.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "statements/form/StatementTable.h"

namespace clb {

/// A list for each role of columns: date, amount or in and out, description, notes, balance. Each
/// offers every column by its name and one of its cells. An amount excludes in and out.
class ColumnLists {
public:
    /// Chooses what the table holds.
    explicit ColumnLists(const StatementTable& table);
    ColumnLists(const ColumnLists&) = delete;
    ColumnLists& operator=(const ColumnLists&) = delete;

    /// Adds the lists, each with its label before it.
    void AddTo(Form& form);
    /// Chooses what such a text says, as far as the table has the columns.
    void Choose(const std::string& columns);
    /// What is chosen, as StatementAnswers::columns with column numbers.
    [[nodiscard]] std::string Columns() const;
    /// Whether dates and amounts have columns.
    [[nodiscard]] bool Complete() const;
    [[nodiscard]] bool HasAmount() const;
    /// Raised when the user has chosen something else.
    Event<void()> Changed() { return changed_; }

private:
    struct Role {
        std::string field;  ///< in StatementAnswers::columns
        std::unique_ptr<Label> label;
        std::unique_ptr<ListBox> list;
        std::vector<std::string> items;  ///< columns of each item: "", "#3" or "#3+#5"
        bool optional = true;
    };

    void Add(const std::string& field, const std::string& name, const std::string& caption,
             const StatementTable::Columns& held, bool optional = true);
    [[nodiscard]] std::string TextOf(std::size_t column) const;
    [[nodiscard]] std::string TextOf(const StatementTable::Columns& columns) const;
    static std::string SpecOf(const StatementTable::Columns& columns);
    [[nodiscard]] const Role& Find(const std::string& field) const;
    Role& Find(const std::string& field);
    static const std::string& ChosenOf(const Role& role);
    void Exclude(const std::string& field);
    void Release(const std::string& field);
    void Choose(Role& role, const StatementTable::Columns& columns);
    static StatementTable::Columns ColumnsOf(const std::string& spec);

    StatementTable table_;
    std::vector<Role> roles_;
    bool choosing_ = false;
    sigc::signal<void()> changed_;
};

}  // namespace clb
