// Any text as records of fields: the records follow each other through the text, and fields that
// are written with quotes come back as they are.

#include <algorithm>
#include <string>
#include <vector>

#include "statements/csv/CsvRecords.h"
#include "tests/fuzz/Fuzz.h"

namespace clb {
namespace {

using Fields = std::vector<std::string>;

/// The fields of all records, each of which lies after the one before.
std::vector<Fields> Read(std::string_view text, CsvDialect dialect)
{
    std::vector<Fields> records;
    CsvRecords reader(text, dialect);
    CsvRecord record;
    const char* end = text.data();
    std::size_t line = 0;
    while (reader.Next(record)) {
        Require(record.line > line && !record.fields.empty());
        Require(record.raw.data() >= end);
        Require(record.raw.data() + record.raw.size() <= text.data() + text.size());
        line = record.line;
        end = record.raw.data() + record.raw.size();
        records.emplace_back(record.fields.begin(), record.fields.end());
    }
    return records;
}

std::string Quoted(const Fields& fields, char delimiter)
{
    std::string text;
    for (const std::string& field : fields) {
        if (!text.empty())
            text += delimiter;
        text += '"';
        for (const char c : field)
            text.append(c == '"' ? 2 : 1, c);
        text += '"';
    }
    return text + "\r\n";
}

}  // namespace
}  // namespace clb

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace clb;
    if (size == 0)
        return 0;
    static constexpr std::string_view kDelimiters = ",;\t|^~";
    const char delimiter = kDelimiters[(data[0] & 0x7FU) % kDelimiters.size()];
    const bool wrapped = (data[0] & 0x80U) != 0;
    const std::vector<Fields> records = Read(TextOf(data + 1, size - 1), {delimiter, wrapped});
    std::string again;
    for (const Fields& record : records)
        again += Quoted(record, delimiter);
    if (!wrapped)
        Require(Read(again, {delimiter, false}) == records);
    return 0;
}
