#include <gtest/gtest.h>

#include "statements/csv/CsvRecords.h"

namespace clb {
namespace {

/// All records: fields divided by '|', records by '\n'.
std::string Records(std::string_view text, char delimiter = ',', bool wrapped = false)
{
    CsvRecords records(text, {delimiter, wrapped});
    CsvRecord record;
    std::string all;
    while (records.Next(record)) {
        for (std::size_t i = 0; i < record.fields.size(); ++i)
            all.append(i > 0 ? "|" : "").append(record.fields[i]);
        all += '\n';
    }
    return all;
}

std::vector<std::size_t> Lines(std::string_view text)
{
    CsvRecords records(text, {',', false});
    CsvRecord record;
    std::vector<std::size_t> lines;
    while (records.Next(record))
        lines.push_back(record.line);
    return lines;
}

TEST(CsvRecordsTest, LinesEndInEveryWay)
{
    EXPECT_EQ(Records("a,b\nc,d\r\ne,f\rg,h"), "a|b\nc|d\ne|f\ng|h\n");
    EXPECT_EQ(Records("a\n\nb\n"), "a\n\nb\n");
    EXPECT_EQ(Lines("a\r\nb\rc\n\nd"), (std::vector<std::size_t>{1, 2, 3, 4, 5}));
}

TEST(CsvRecordsTest, QuotedFieldsHoldDelimitersQuotesAndLines)
{
    EXPECT_EQ(Records("\"a,b\",\"say \"\"hi\"\"\",\"x\ny\"\nz"), "a,b|say \"hi\"|x\ny\nz\n");
    EXPECT_EQ(Records("\"\",\"\"\"\",a"), "|\"|a\n");
    EXPECT_EQ(Lines("\"x\r\ny\nz\",1\nnext"), (std::vector<std::size_t>{1, 4}));
}

TEST(CsvRecordsTest, SpacesAndZerosAroundFieldsAreDropped)
{
    EXPECT_EQ(Records(" a , \"b\" \t,\tc\u00A0"), "a|b|c\n");
    EXPECT_EQ(Records(std::string_view("a\0,\0b", 5)), "a|b\n");
}

TEST(CsvRecordsTest, QuotesThatNothingClosesAreCharacters)
{
    EXPECT_EQ(Records("\"a,b\nc,d"), "\"a|b\nc|d\n");
    EXPECT_EQ(Records("5\" pipe,1\nx,2"), "5\" pipe|1\nx|2\n");
    // Only the first line is broken.
    EXPECT_EQ(Records("1,\"open,2\n3,\"shut\",4\n"), "1|\"open|2\n3|shut|4\n");
    EXPECT_EQ(Records("\"a \"b\" c\",1"), "a \"b\" c|1\n");
}

TEST(CsvRecordsTest, ApostrophesAroundAFieldAreDropped)
{
    EXPECT_EQ(Records("'a, b',1,O'Neill,'99"), "a, b|1|O'Neill|'99\n");
    EXPECT_EQ(Records("'1,x,'2'"), "'1|x|2\n");
}

TEST(CsvRecordsTest, FormulasThatKeepZerosAreTexts)
{
    EXPECT_EQ(Records("=\"0012\",1"), "0012|1\n");
}

TEST(CsvRecordsTest, ARecordMayBeOneQuotedField)
{
    EXPECT_EQ(Records("\"a,\"\"b,c\"\",d\"\ne,f\n", ',', true), "a|b,c|d\ne|f\n");
}

TEST(CsvRecordsTest, HugeBrokenTextsTakeNoTime)
{
    std::string quotes;
    for (int i = 0; i < 200'000; ++i)
        quotes += "a,\"b\n";
    EXPECT_EQ(Records(quotes).size(), quotes.size());
    EXPECT_FALSE(Records(std::string(2'000'000, '"')).empty());
    EXPECT_FALSE(Records(std::string(2'000'000, ',')).empty());
    std::string apostrophes;
    for (int i = 0; i < 200'000; ++i)
        apostrophes += ", 'a";
    EXPECT_FALSE(Records(apostrophes).empty());
}

}  // namespace
}  // namespace clb
