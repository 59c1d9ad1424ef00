#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include "statements/form/StatementReader.h"
#include "statements/source/Archive.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

using Files = std::vector<std::pair<std::string, std::string>>;

std::string Gzip(const std::string& bytes)
{
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string in = bytes;
    std::string out(deflateBound(&stream, in.size()) + 64, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(in.data());
    stream.avail_in = static_cast<uInt>(in.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

/// An archive with these files, by libarchive's own writer.
std::string Archive(const Files& files, int (*format)(archive*), const char* password = nullptr)
{
    std::string out(1U << 22U, '\0');
    std::size_t used = 0;
    archive* writer = archive_write_new();
    format(writer);
    if (password) {
        archive_write_set_options(writer, "zip:encryption=traditional");
        archive_write_set_passphrase(writer, password);
    }
    archive_write_open_memory(writer, out.data(), out.size(), &used);
    for (const auto& [name, bytes] : files) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, name.c_str());
        archive_entry_set_size(entry, static_cast<la_int64_t>(bytes.size()));
        archive_entry_set_filetype(entry, name.ends_with("/") ? AE_IFDIR : AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        archive_write_header(writer, entry);
        archive_write_data(writer, bytes.data(), bytes.size());
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    out.resize(used);
    return out;
}
std::string Zip(const Files& files)
{
    return Archive(files, archive_write_set_format_zip);
}

Files Unpacked(const std::string& name, const std::string& bytes)
{
    Files files;
    for (const SourceFile& file : Unpack(name, bytes))
        files.emplace_back(file.name, file.bytes);
    return files;
}
std::string Refusal(const std::string& bytes)
{
    try {
        (void)Unpack("a", bytes);
    } catch (const NotAStatement& refused) {
        return refused.what();
    }
    return "none";
}

TEST(UnpackTest, APlainFileIsItself)
{
    EXPECT_EQ(Unpacked("a.zip", "text"), (Files{{"a.zip", "text"}}));
    EXPECT_EQ(Unpacked("a.csv", ""), (Files{{"a.csv", ""}}));
}

TEST(UnpackTest, AGzipFileHoldsOneFileWhateverItsName)
{
    EXPECT_EQ(Unpacked("march.ofx.gz", Gzip("text")), (Files{{"march.ofx.gz/march.ofx", "text"}}));
    EXPECT_EQ(Unpacked("march", Gzip("text")), (Files{{"march/march", "text"}}));
    EXPECT_EQ(Unpacked("a.gz", Gzip("one ") + Gzip("two")), (Files{{"a.gz/a", "one two"}}));
    EXPECT_EQ(Unpacked("a.gz", Gzip("one") + std::string(100, '\0')), (Files{{"a.gz/a", "one"}}));
    EXPECT_EQ(Unpacked("a.gz", Gzip("")), Files());
}

TEST(UnpackTest, AZipFileHoldsFiles)
{
    EXPECT_EQ(Unpacked("a.zip", Zip({{"one.xml", "1"},
                                     {"folder/", ""},
                                     {"folder/two.xml", "2"},
                                     {"empty", ""},
                                     {"__MACOSX/._one.xml", "x"},
                                     {".DS_Store", "x"},
                                     {"Ausz\xC3\xBCge.csv", "3"}})),
              (Files{{"a.zip/one.xml", "1"},
                     {"a.zip/folder/two.xml", "2"},
                     {"a.zip/Ausz\xC3\xBCge.csv", "3"}}));
}

TEST(UnpackTest, AGzippedTarFileHoldsFiles)
{
    EXPECT_EQ(Unpacked("a.tgz", Gzip(Archive({{"one.xml", "1"}, {"two.xml", "2"}},
                                             archive_write_set_format_ustar))),
              (Files{{"a.tgz/one.xml", "1"}, {"a.tgz/two.xml", "2"}}));
}

TEST(UnpackTest, ADamagedArchiveIsRefused)
{
    const std::string text(5000, 'x');
    std::string gzip = Gzip(text + "y");
    EXPECT_EQ(Refusal(gzip.substr(0, gzip.size() - 1)), "The archive is damaged.");
    gzip[gzip.size() - 6] = static_cast<char>(gzip[gzip.size() - 6] ^ 1);  // the checksum
    EXPECT_EQ(Refusal(gzip), "The archive is damaged.");
    std::string zip = Archive({{"a", "text as it is"}}, [](archive* writer) {
        archive_write_set_format_zip(writer);
        return archive_write_zip_set_compression_store(writer);
    });
    zip.replace(zip.find("text as it is"), 4, "Text");
    EXPECT_EQ(Refusal(zip), "The archive is damaged.");
    EXPECT_EQ(Refusal("PK\x03\x04 and no more"), "The archive is damaged.");
}

TEST(UnpackTest, AnArchiveWithAPasswordIsRefused)
{
    EXPECT_EQ(Refusal(Archive({{"a", "text"}}, archive_write_set_format_zip, "secret")),
              "The archive needs a password. Unpack it first.");
}

TEST(UnpackTest, ADocumentOfAnOfficeProgramIsRefused)
{
    const std::string refusal =
        "The file is a document of an office program. Save the table in it as CSV.";
    EXPECT_EQ(Refusal(Zip({{"[Content_Types].xml", "x"}, {"xl/workbook.xml", "x"}})), refusal);
    EXPECT_EQ(Refusal(Zip({{"content.xml", "x"}, {"META-INF/manifest.xml", "x"}})), refusal);
}

TEST(UnpackTest, AnArchiveThatHoldsTooMuchIsRefused)
{
    const std::string zeros(100000, '0');
    const ArchiveLimits small{150000, 3};

    EXPECT_THROW((void)Gunzip(Gzip(zeros + zeros), small), NotAStatement);
    EXPECT_EQ(Gunzip(Gzip(zeros), small), zeros);
    EXPECT_THROW((void)FilesInArchive(Zip({{"a", zeros}, {"b", zeros}}), small), NotAStatement);
    EXPECT_THROW((void)FilesInArchive(Zip({{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}}), small),
                 NotAStatement);
    EXPECT_EQ(FilesInArchive(Zip({{"a", zeros}}), small).size(), 1U);
}

}  // namespace
}  // namespace clb
