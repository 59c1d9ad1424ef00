#include "json/RunSql.h"

namespace clb {
namespace {

Json Fields(const Recordset& records)
{
    Json fields = Json::array();
    for (const Field& field : records.Fields())
        fields.push_back({{"name", field.name}, {"type", TypeName(field.type)}});
    return fields;
}

Json Rows(const Recordset& records)
{
    Json rows = Json::array();
    const auto count = static_cast<std::size_t>(records.RecordCount());
    for (std::size_t row = 0; row < count; ++row) {
        Json values = Json::array();
        for (std::size_t field = 0; field < records.Fields().size(); ++field)
            values.push_back(ToJson(records.At(row, field)));
        rows.push_back(std::move(values));
    }
    return rows;
}

}  // namespace

Json RunSql(Connection& connection, const std::string& sql)
{
    const Recordset records = connection.Execute(sql);
    if (!records.IsOpen())
        return {{"fields", Json::array()}, {"rows", Json::array()}};
    return {{"fields", Fields(records)}, {"rows", Rows(records)}};
}

}  // namespace clb
