#include "history/StepStory.h"

#include <algorithm>

#include "engine/storage/Catalogue.h"
#include "history/StepBytes.h"

namespace clb {

std::vector<RowStory> StepStoryteller::Of(const Step& step, std::size_t most)
{
    const std::vector<std::string> parts = store_->Parts(step.number);
    rows_.clear();
    order_.clear();
    FindRows(step.number, parts, most);
    for (auto& [place, cells] : rows_)
        cells = Present(place);
    for (const std::int64_t between : StepsBetween(step))
        GoThrough(between, store_->Parts(between));

    std::vector<RowStory> stories;
    for (const Place& place : order_)
        stories.push_back({place.first, place.second, {}, Named(place.first, rows_[place])});
    GoThrough(step.number, parts);
    for (RowStory& story : stories) {
        story.was = Named(story.table, rows_[{story.table, story.row}]);
        // The record of a step that was undone leads the other way.
        if (step.undone)
            std::swap(story.was, story.is);
    }
    return stories;
}

void StepStoryteller::FindRows(std::int64_t step, const std::vector<std::string>& parts,
                               std::size_t most)
try {
    RowChanged row;
    for (const std::string& part : parts)
        for (StepReader reader(part); reader.NextTable();)
            while (reader.NextRow(row)) {
                if (order_.size() >= most)
                    return;
                const Place place(reader.Table(), row.row);
                if (rows_.try_emplace(place).second)
                    order_.push_back(place);
            }
} catch (const packed::BrokenBytes&) {
    throw DamagedStep{step};
}

/// From the present to the step, in the order in which their records apply.
std::vector<std::int64_t> StepStoryteller::StepsBetween(const Step& step) const
{
    std::vector<std::int64_t> between;
    store_->Visit([&](const Step& other) {
        const bool later = other.number > step.number;
        if (other.undone == step.undone && other.number != step.number && later != step.undone)
            between.push_back(other.number);
        return step.undone || later;
    });
    if (step.undone)
        std::reverse(between.begin(), between.end());
    return between;
}

StepStoryteller::Cells StepStoryteller::Present(const Place& place)
{
    const TableShape& shape = shapes_->Of(place.first);
    if (shape.identity.empty())
        return std::nullopt;
    Query find = database_->Prepare("SELECT * FROM " + QuoteName(shape.name) + " WHERE " +
                                    shape.identity + " = ?1");
    const ResetAtExit reset(find);
    find.BindInteger(1, place.second);
    if (!database_->Step(find))
        return std::nullopt;
    std::vector<StoredCell> cells;
    for (std::size_t i = 0; i < shape.columns.size(); ++i)
        cells.push_back(find.Cell(static_cast<int>(i)));
    return cells;
}

void StepStoryteller::GoThrough(std::int64_t step, const std::vector<std::string>& parts)
{
    try {
        GoThrough(parts);
    } catch (const packed::BrokenBytes&) {
        throw DamagedStep{step};
    }
}

void StepStoryteller::GoThrough(const std::vector<std::string>& parts)
{
    RowChanged row;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        for (StepReader reader(*part); reader.NextTable();)
            while (reader.NextRow(row)) {
                const auto found = rows_.find({reader.Table(), row.row});
                if (found == rows_.end())
                    continue;
                Cells& cells = found->second;
                if (!row.was) {
                    cells.reset();
                    continue;
                }
                if (!cells)
                    cells.emplace();
                cells->resize(std::max(cells->size(), static_cast<std::size_t>(reader.Columns())));
                for (const auto& [column, cell] : row.before)
                    (*cells)[static_cast<std::size_t>(column)] = packed::Reader(cell).Cell();
            }
}

std::optional<NamedValues> StepStoryteller::Named(const std::string& table, const Cells& cells)
{
    if (!cells)
        return std::nullopt;
    const TableShape& shape = shapes_->Of(table);
    const TableInfo* const info = catalogue_.Find(table);
    NamedValues named;
    for (std::size_t i = 0; i < cells->size(); ++i) {
        const std::string name =
            i < shape.columns.size() ? shape.columns[i] : std::to_string(i + 1);
        const ColumnInfo* const column = info != nullptr ? info->Find(name) : nullptr;
        named.emplace_back(
            name, ValueOf((*cells)[i], column != nullptr ? column->type.type : FieldType::Text));
    }
    return named;
}

}  // namespace clb
