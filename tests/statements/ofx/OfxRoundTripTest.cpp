// Random rows, written in each shape of OFX, come back as they were.

#include <gtest/gtest.h>

#include "base/Text.h"
#include "statements/ofx/OfxReader.h"
#include "tests/support/CollectedStatement.h"
#include "tests/support/RandomStatement.h"

namespace clb {
namespace {

/// A shape of OFX.
struct Shape {
    bool endTags = false;
    bool header = true;
    bool sections = false;  ///< texts in CDATA sections
    bool numbers = false;   ///< every character as an entity's number
    char decimal = '.';
    bool groups = false;
    const char* between = "\n";  ///< between tags
};

std::string AsNumbers(const std::string& text)
{
    std::string numbers;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = ByteOffset(text.substr(at), 1);
        if (size > 1)
            numbers += text.substr(at, size);
        else
            numbers += "&#" + std::to_string(static_cast<unsigned char>(text[at])) + ";";
        at += size;
    }
    return numbers;
}

std::string Escaped(const std::string& text, const Shape& shape)
{
    if (shape.sections)
        return "<![CDATA[" + text + "]]>";
    if (shape.numbers)
        return AsNumbers(text);
    return Replace(Replace(Replace(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

std::string Element(const std::string& tag, const std::string& value, const Shape& shape)
{
    return "<" + tag + ">" + value + (shape.endTags ? "</" + tag + ">" : "") + shape.between;
}

std::string Written(const std::vector<StatementRow>& rows, const Shape& shape,
                    RandomStatement& random)
{
    std::string text = shape.header ? "OFXHEADER:100\nVERSION:102\n\n" : "";
    text += "<OFX><STMTRS><BANKTRANLIST>";
    for (const StatementRow& row : rows) {
        text += "<STMTTRN>";
        text += shape.between;
        text += Element("DTPOSTED", Replace(row.date.ToIso(), "-", ""), shape);
        text += Element("TRNAMT", random.Amount(row.amount, shape.decimal, shape.groups), shape);
        text += Element("NAME", Escaped(row.name, shape), shape);
        if (!row.text.empty())
            text += Element("MEMO", Escaped(row.text, shape), shape);
        text += "</STMTTRN>";
    }
    return text + "</BANKTRANLIST></STMTRS></OFX>";
}

class OfxRoundTrip : public ::testing::TestWithParam<Shape> {};

TEST_P(OfxRoundTrip, GivesTheRowsBack)
{
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomStatement random(seed);
        const std::vector<StatementRow> rows = random.Rows();
        const std::string text = Written(rows, GetParam(), random);
        const auto reader = ReadOfx(text);

        ASSERT_TRUE(Asked(*reader).empty()) << text;
        const CollectedStatement read = Collect(*reader);

        ASSERT_TRUE(read.leftOut.empty()) << text;
        ASSERT_EQ(read.accounts.at(0).rows.size(), rows.size()) << text;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const StatementRow& got = read.accounts[0].rows[i];
            ASSERT_EQ(got.date, rows[i].date) << text;
            ASSERT_EQ(got.amount, rows[i].amount) << text;
            ASSERT_EQ(got.name, rows[i].name) << text;
            ASSERT_EQ(got.text, rows[i].text) << text;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, OfxRoundTrip,
    ::testing::Values(Shape{}, Shape{.endTags = true}, Shape{.header = false, .between = ""},
                      Shape{.endTags = true, .between = "\r\n\t "},
                      Shape{.endTags = true, .sections = true}, Shape{.numbers = true},
                      Shape{.decimal = ','}, Shape{.decimal = '.', .groups = true},
                      Shape{.endTags = true, .decimal = ',', .groups = true, .between = "\r"}));

}  // namespace
}  // namespace clb
