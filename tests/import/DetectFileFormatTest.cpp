#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/RuntimeError.h"
#include "import/modImport.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class DetectFileFormatTest : public ::testing::Test {
protected:
    std::int32_t KindOf(std::string_view bytes, const std::string& name = "statement.ofx")
    {
        return modImport::DetectFileFormat(folder_.Write(name, bytes));
    }

    std::int32_t ErrorOf(const std::string& path)
    {
        try {
            modImport::DetectFileFormat(path);
        } catch (const RuntimeError& error) {
            message_ = error.what();
            return error.Number();
        }
        return 0;
    }

    TempFolder folder_;
    std::string message_;
};

TEST_F(DetectFileFormatTest, AHeaderOfVersion102IsKnown)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\n"), 2);
}

TEST_F(DetectFileFormatTest, BlankLinesMayPrecedeTheHeader)
{
    EXPECT_EQ(KindOf("\r\n\r\n\rOFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102"), 2);
}

TEST_F(DetectFileFormatTest, TheHeaderMayEndItsLinesInCarriageReturnsOnly)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\rDATA:OFXSGML\rVERSION:102\r"), 2);
}

TEST_F(DetectFileFormatTest, AByteOrderMarkIsNotPartOfTheFirstLine)
{
    EXPECT_EQ(KindOf("\xEF\xBB\xBFOFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 2);
}

TEST_F(DetectFileFormatTest, OtherVersionsAreNotKnown)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:103\r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102 \r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\nversion:102\r\n"), 0);
}

TEST_F(DetectFileFormatTest, TheFirstLineIsComparedWholeAndWithCase)
{
    EXPECT_EQ(KindOf(" OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100 \r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 0);
    EXPECT_EQ(KindOf("OfxHeader:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:200\r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 0);
}

TEST_F(DetectFileFormatTest, ALineOfSpacesIsNotAnEmptyLine)
{
    EXPECT_EQ(KindOf(" \r\nOFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n"), 0);
}

TEST_F(DetectFileFormatTest, TheVersionMustBeTheThirdLine)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nVERSION:102\r\nDATA:OFXSGML\r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\n\r\nVERSION:102\r\n"), 0);
}

TEST_F(DetectFileFormatTest, TheSecondLineEndsAtACommaToo)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML,VERSION:102\r\n"), 2);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML,1\r\nVERSION:102\r\n"), 0);
}

TEST_F(DetectFileFormatTest, AHeaderThatEndsTooSoonIsNotKnown)
{
    EXPECT_EQ(KindOf("OFXHEADER:100"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\n"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML"), 0);
    EXPECT_EQ(KindOf("OFXHEADER:100\r\nDATA:OFXSGML\r\n"), 0);
}

TEST_F(DetectFileFormatTest, DoubledCarriageReturnsMakeTheVersionLineTheFifth)
{
    EXPECT_EQ(KindOf("OFXHEADER:100\r\r\nDATA:OFXSGML\r\r\nVERSION:102\r\r\n"), 0);
}

TEST_F(DetectFileFormatTest, TheOlderMarkupIsKnownByItsFirstTagInUpperCase)
{
    EXPECT_EQ(KindOf("<OFC>\r\n<DTD>2\r\n"), 2);
    EXPECT_EQ(KindOf("<OFC><DTD>2"), 2);
    EXPECT_EQ(KindOf("\r\n<OFC>"), 2);
    EXPECT_EQ(KindOf("<ofc>\r\n"), 0);
    EXPECT_EQ(KindOf(" <OFC>\r\n"), 0);
    EXPECT_EQ(KindOf("<OFC"), 0);
}

TEST_F(DetectFileFormatTest, TheNameDecidesForQifWhateverTheFileContains)
{
    EXPECT_EQ(KindOf("<OFC>", "a.qif"), 3);
    EXPECT_EQ(KindOf("", "b.QIF"), 3);
    EXPECT_EQ(KindOf("anything", "c.QiF"), 3);
    EXPECT_EQ(KindOf("!Type:Bank\r\n", ".qif"), 3);
}

TEST_F(DetectFileFormatTest, QifTextUnderAnotherNameIsNotKnown)
{
    EXPECT_EQ(KindOf("!Type:Bank\r\nD3/5'06\r\n^\r\n", "bank.ofx"), 0);
    EXPECT_EQ(KindOf("!Type:Bank\r\n", "bank.qif.txt"), 0);
}

TEST_F(DetectFileFormatTest, OtherNamesDoNotMatter)
{
    EXPECT_EQ(KindOf("<OFC>", "a.txt"), 2);
    EXPECT_EQ(KindOf("<OFC>", "x"), 2);
    EXPECT_EQ(KindOf("", "a.ofx"), 0);
    EXPECT_EQ(KindOf("\r\n\r\n", "a.qfx"), 0);
    EXPECT_EQ(KindOf("<?xml version=\"1.0\"?>\r\n<?OFX OFXHEADER=\"200\"?>\r\n", "a.ofx"), 0);
}

TEST_F(DetectFileFormatTest, AMissingFileIsAnError)
{
    EXPECT_EQ(ErrorOf(folder_.Path("none.qif")), 53);
    EXPECT_EQ(message_, "File not found");
}

TEST_F(DetectFileFormatTest, AFolderOrPipeIsAnError)
{
    const std::string pipe = folder_.Path("pipe.ofx");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

    EXPECT_EQ(ErrorOf(folder_.Path()), 75);
    EXPECT_EQ(ErrorOf(pipe), 75);
    EXPECT_EQ(message_, "Path/File access error: " + pipe);
}

}  // namespace
}  // namespace clb
