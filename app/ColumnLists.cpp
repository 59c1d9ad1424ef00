#include "app/ColumnLists.h"

#include <algorithm>

#include "app/StatementWords.h"
#include "base/Text.h"

namespace clb {
namespace {

constexpr std::size_t kNameShown = 28;
constexpr std::size_t kSampleShown = 24;
constexpr const char* kNone = "(none)";

}  // namespace

ColumnLists::ColumnLists(const StatementTable& table) : table_(table)
{
    Add("date", "cmbDate", "Date:", table.date, false);
    Add("amount", "cmbAmount", "Amount:", table.amount);
    Add("in", "cmbIn", "Money in:", table.in);
    Add("out", "cmbOut", "Money out:", table.out);
    Add("name", "cmbName", "Description:", table.name);
    Add("text", "cmbText", "Notes:", table.text);
    Add("balance", "cmbBalance", "Balance:", table.balance);
}

std::string ColumnLists::TextOf(std::size_t column) const
{
    const StatementTable::Column& shown = table_.columns[column];
    const std::string name = shown.name.empty()
                                 ? "Column " + std::to_string(column + 1)
                                 : statement_words::Shortened(shown.name, kNameShown);
    return shown.sample.empty()
               ? name
               : name + "  \u2013  " + statement_words::Shortened(shown.sample, kSampleShown);
}

std::string ColumnLists::TextOf(const StatementTable::Columns& columns) const
{
    std::string text;
    for (const std::size_t column : columns) {
        const std::string& name = table_.columns[column].name;
        text += (text.empty() ? "" : " + ") +
                (name.empty() ? "Column " + std::to_string(column + 1) : name);
    }
    return statement_words::Shortened(text, kNameShown + kSampleShown);
}

std::string ColumnLists::SpecOf(const StatementTable::Columns& columns)
{
    std::string spec;
    for (const std::size_t column : columns)
        spec += (spec.empty() ? "#" : "+#") + std::to_string(column + 1);
    return spec;
}

void ColumnLists::Add(const std::string& field, const std::string& name, const std::string& caption,
                      const StatementTable::Columns& held, bool optional)
{
    Role role{field,
              std::make_unique<Label>("lbl" + name.substr(3), caption),
              std::make_unique<ListBox>(name),
              {},
              optional};
    const auto add = [&role](const std::string& text, const std::string& columns) {
        role.list->Add(text);
        role.items.push_back(columns);
    };
    if (optional || held.empty())
        add(kNone, "");
    if (held.size() > 1)
        add(TextOf(held), SpecOf(held));
    for (std::size_t column = 0; column < table_.columns.size(); ++column)
        add(TextOf(column), SpecOf({column}));
    const auto place = std::find(role.items.begin(), role.items.end(), SpecOf(held));
    role.list->Index(
        place == role.items.end() ? 0 : static_cast<std::int32_t>(place - role.items.begin()));
    role.list->Click().connect([this, field] {
        if (choosing_)
            return;
        Exclude(field);
        Release(field);
        changed_.emit();
    });
    roles_.push_back(std::move(role));
}

void ColumnLists::AddTo(Form& form)
{
    for (const Role& role : roles_) {
        form.Add(*role.label);
        form.Add(*role.list);
    }
}

/// A column of amounts and columns of what comes in or goes out are not both in use.
void ColumnLists::Exclude(const std::string& field)
{
    const bool amount = field == "amount";
    if ((!amount && field != "in" && field != "out") || ChosenOf(Find(field)).empty())
        return;
    choosing_ = true;
    for (const char* other : {"amount", "in", "out"})
        if (amount != (std::string_view(other) == "amount"))
            Find(other).list->Index(0);
    choosing_ = false;
}

/// A column that holds something else is no description or note any more.
void ColumnLists::Release(const std::string& field)
{
    if (field == "name" || field == "text")
        return;
    const StatementTable::Columns taken = ColumnsOf(ChosenOf(Find(field)));
    StatementTable::Columns names = ColumnsOf(ChosenOf(Find("name")));
    StatementTable::Columns texts = ColumnsOf(ChosenOf(Find("text")));
    const auto isTaken = [&taken](std::size_t column) {
        return std::find(taken.begin(), taken.end(), column) != taken.end();
    };
    if (std::erase_if(names, isTaken) + std::erase_if(texts, isTaken) == 0)
        return;
    if (names.empty() && !texts.empty()) {
        names = {texts.front()};
        texts.erase(texts.begin());
    }
    choosing_ = true;
    Choose(Find("name"), names);
    Choose(Find("text"), texts);
    choosing_ = false;
}

void ColumnLists::Choose(Role& role, const StatementTable::Columns& columns)
{
    const std::string spec = SpecOf(columns);
    auto item = std::find(role.items.begin(), role.items.end(), spec);
    if (item == role.items.end()) {
        role.list->Add(TextOf(columns));
        item = role.items.insert(role.items.end(), spec);
    }
    role.list->Index(static_cast<std::int32_t>(item - role.items.begin()));
}

StatementTable::Columns ColumnLists::ColumnsOf(const std::string& spec)
{
    StatementTable::Columns columns;
    for (const std::string& number : Split(spec, '+'))
        if (number.starts_with('#'))
            columns.push_back(std::stoul(number.substr(1)) - 1);
    return columns;
}

ColumnLists::Role& ColumnLists::Find(const std::string& field)
{
    return *std::find_if(roles_.begin(), roles_.end(),
                         [&field](const Role& role) { return role.field == field; });
}

const ColumnLists::Role& ColumnLists::Find(const std::string& field) const
{
    return *std::find_if(roles_.begin(), roles_.end(),
                         [&field](const Role& role) { return role.field == field; });
}

const std::string& ColumnLists::ChosenOf(const Role& role)
{
    return role.items.at(static_cast<std::size_t>(role.list->Index()));
}

void ColumnLists::Choose(const std::string& columns)
{
    choosing_ = true;
    for (const std::string& part : Split(columns, ',')) {
        const std::size_t equals = std::min(part.find('='), part.size());
        const auto role = std::find_if(roles_.begin(), roles_.end(), [&](const Role& one) {
            return part.compare(0, equals, one.field) == 0;
        });
        if (role == roles_.end() || equals == part.size())
            continue;
        const auto item =
            std::find(role->items.begin(), role->items.end(), part.substr(equals + 1));
        if (item != role->items.end())
            role->list->Index(static_cast<std::int32_t>(item - role->items.begin()));
    }
    choosing_ = false;
}

std::string ColumnLists::Columns() const
{
    std::string columns;
    for (const Role& role : roles_)
        if (role.optional || !ChosenOf(role).empty())
            columns += (columns.empty() ? "" : ",") + role.field + "=" + ChosenOf(role);
    return columns;
}

bool ColumnLists::HasAmount() const
{
    return !ChosenOf(Find("amount")).empty();
}

bool ColumnLists::Complete() const
{
    return !ChosenOf(Find("date")).empty() &&
           (HasAmount() || !ChosenOf(Find("in")).empty() || !ChosenOf(Find("out")).empty());
}

}  // namespace clb
