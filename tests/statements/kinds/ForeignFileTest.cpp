#include <gtest/gtest.h>

#include "statements/kinds/ForeignFile.h"

namespace clb {
namespace {

TEST(ForeignFile, SaysWhatAFileIs)
{
    const std::pair<std::string_view, const char*> files[] = {
        {"", "The file is empty."},
        {" \r\n\t ", "The file is empty."},
        {"%PDF-1.7\n%", "The file is a PDF document."},
        {"{\\rtf1\\ansi", "The file is a document of a word processor (RTF)."},
        {std::string_view("SQLite format 3\0", 16), "The file is a database (SQLite)."},
        {"PK\x03\x04xl/", "The file is a zip archive or a spreadsheet."},
        {"\xD0\xCF\x11\xE0\xA1", "The file is a spreadsheet or document of an office program."},
        {"\x89PNG\r\n", "The file is a picture (PNG)."},
        {"<!DOCTYPE html>\n<html>", "The file is a web page (HTML)."},
        {"\n <HTML><BODY><TABLE>", "The file is a web page (HTML)."},
        {"<table><tr><td>1</td></tr></table>", "The file is a web page (HTML)."},
        {"<?xml version=\"1.0\"?><!DOCTYPE html PUBLIC \"-\"><html xmlns=\"x\">",
         "The file is a web page (HTML)."},
        {"<?xml version=\"1.0\"?>\n<?mso-application progid=\"Excel.Sheet\"?><Workbook>",
         "The file is a spreadsheet (XML)."},
        {"<?xml version=\"1.0\"?><Document "
         "xmlns=\"urn:iso:std:iso:20022:tech:xsd:pain.001.001.03\">",
         "The file is a list of payments for a bank (pain)."},
        {"<?xml version=\"1.0\"?><rss version=\"2.0\">",
         "The file is XML with the element \"rss\", which is no known kind of statement."},
        {"{\"transactions\": []}", "The file is JSON data."},
        {"[\n  {\"id\": 1}]", "The file is JSON data."},
        {std::string_view("a,b\0c", 5), "The file is not a text."}};
    for (const auto& [text, sentence] : files)
        EXPECT_EQ(DescribeForeignFile(text).substr(0, std::string(sentence).size()), sentence);
}

TEST(ForeignFile, SaysNothingOfTexts)
{
    for (const char* const text :
         {"Date,Amount\n", "<DATE>,<AMOUNT>\n1,2", "{1:F01BANKDEFFAXXX}{2:O940}{4:\r\n:20:A",
          ":20:STARTUMS", "------------\nDate;Amount", "MM/DD/YYYY,Amount", "!Type:Bank",
          "GIFT,5.00", "[Bank]\n1"})
        EXPECT_EQ(DescribeForeignFile(text), "") << text;
}

}  // namespace
}  // namespace clb
