#include "statements/source/Archive.h"

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

#include "statements/form/StatementReader.h"

namespace clb {
namespace {

constexpr std::size_t kBlock = 65536;

[[noreturn]] void Damaged()
{
    throw NotAStatement("The archive is damaged.");
}
[[noreturn]] void TooLarge()
{
    throw NotAStatement("The archive holds more than a delivery of statements does.");
}

/// Inflates the members of a gzip file.
class Inflater {
public:
    explicit Inflater(const std::string& bytes)
    {
        // 16 more than the window: gzip with its checksum.
        if (bytes.size() > std::numeric_limits<uInt>::max() ||
            inflateInit2(&stream_, 16 + MAX_WBITS) != Z_OK)
            Damaged();
        // zlib does not write to its input.
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
        stream_.avail_in = static_cast<uInt>(bytes.size());
    }
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    /// Appends the next block. Returns false after the last one.
    bool Next(std::string& out)
    {
        std::array<Bytef, kBlock> block{};
        stream_.next_out = block.data();
        stream_.avail_out = kBlock;
        const int result = inflate(&stream_, Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END)
            Damaged();
        out.append(reinterpret_cast<const char*>(block.data()), kBlock - stream_.avail_out);
        if (result == Z_OK)
            return true;
        // Another member may follow; padding and what else is there is no part of the file.
        return stream_.avail_in > 2 && stream_.next_in[0] == 0x1F && stream_.next_in[1] == 0x8B &&
               inflateReset(&stream_) == Z_OK;
    }

private:
    z_stream stream_{};
};

struct CloseArchive {
    void operator()(archive* open) const { archive_read_free(open); }
};
using OpenArchive = std::unique_ptr<archive, CloseArchive>;

OpenArchive Open(const std::string& bytes)
{
    OpenArchive open(archive_read_new());
    if (!open)
        Damaged();
    archive_read_support_format_zip(open.get());
    archive_read_support_format_tar(open.get());
    if (archive_read_open_memory(open.get(), bytes.data(), bytes.size()) != ARCHIVE_OK)
        Damaged();
    return open;
}

std::string NameOf(archive_entry* entry, std::size_t number)
{
    const char* name = archive_entry_pathname_utf8(entry);
    if (!name)
        name = archive_entry_pathname(entry);
    return name ? name : "file " + std::to_string(number);
}

/// What systems add to an archive.
bool IsByTheWay(const std::string& name)
{
    const std::string last = name.substr(name.rfind('/') + 1);
    return name.starts_with("__MACOSX/") || name.find("/__MACOSX/") != std::string::npos ||
           last.starts_with("._") || last == ".DS_Store" || last == "Thumbs.db" ||
           last == "desktop.ini";
}

/// Parts by which the documents of office programs are known.
bool IsOfOffice(const std::string& name)
{
    return name == "[Content_Types].xml" || name == "META-INF/manifest.xml";
}

std::string DataOf(archive* open, std::size_t room)
{
    std::string data;
    std::string block(kBlock, '\0');
    for (;;) {
        const la_ssize_t size = archive_read_data(open, block.data(), block.size());
        if (size < 0)
            Damaged();
        if (size == 0)
            return data;
        if (data.size() + static_cast<std::size_t>(size) > room)
            TooLarge();
        data.append(block, 0, static_cast<std::size_t>(size));
    }
}

}  // namespace

bool IsGzip(const std::string& bytes)
{
    return bytes.starts_with("\x1F\x8B\x08");
}

bool IsZip(const std::string& bytes)
{
    return bytes.starts_with("PK\x03\x04") || bytes.starts_with(std::string("PK\x05\x06"));
}

bool IsTar(const std::string& bytes)
{
    return bytes.size() >= 512 && bytes.compare(257, 5, "ustar") == 0;
}

std::string Gunzip(const std::string& bytes, const ArchiveLimits& limits)
{
    Inflater inflater(bytes);
    std::string out;
    while (inflater.Next(out))
        if (out.size() > limits.bytes)
            TooLarge();
    if (out.size() > limits.bytes)
        TooLarge();
    return out;
}

std::vector<SourceFile> FilesInArchive(const std::string& bytes, const ArchiveLimits& limits)
{
    const OpenArchive open = Open(bytes);
    std::vector<SourceFile> files;
    std::size_t room = limits.bytes;
    archive_entry* entry = nullptr;
    for (std::size_t number = 1;; ++number) {
        const int result = archive_read_next_header(open.get(), &entry);
        if (result == ARCHIVE_EOF)
            return files;
        // A warning is about the characters of a name.
        if (result != ARCHIVE_OK && result != ARCHIVE_WARN)
            Damaged();
        if (number > limits.files)
            TooLarge();
        const std::string name = NameOf(entry, number);
        if (IsOfOffice(name))
            throw NotAStatement(
                "The file is a document of an office program. Save the table in it as CSV.");
        if (archive_entry_is_encrypted(entry) != 0)
            throw NotAStatement("The archive needs a password. Unpack it first.");
        if (archive_entry_filetype(entry) != AE_IFREG || IsByTheWay(name))
            continue;
        std::string data = DataOf(open.get(), room);
        room -= data.size();
        if (!data.empty())
            files.push_back({name, std::move(data)});
    }
}

}  // namespace clb
