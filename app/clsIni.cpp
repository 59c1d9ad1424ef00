#include "app/clsIni.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <vector>

#include "base/Text.h"
#include "files/FileError.h"
#include "files/ReadFile.h"
#include "files/WholeFile.h"

namespace clb {
namespace {

constexpr std::size_t kMostCharacters = 99;

/// Trims spaces and tabs from both ends.
std::string_view Stripped(std::string_view text)
{
    const auto from = text.find_first_not_of(" \t");
    if (from == std::string_view::npos)
        return {};
    return text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Reads the bytes of the file; empty if it does not exist. Throws FileError if it cannot be read.
std::string BytesOf(const std::string& path)
{
    std::error_code unknown;
    const auto status = std::filesystem::status(path, unknown);
    if (status.type() == std::filesystem::file_type::not_found)
        return "";
    if (!std::filesystem::is_regular_file(status))
        throw CannotRead(path, EISDIR);
    return ReadFile(path);
}

/// The lines of the file without their line ends, and whether it begins with a byte-order mark.
struct IniText {
    std::vector<std::string> lines;
    bool marked = false;

    /// Reads a file in UTF-8 or, if it is not valid UTF-8, in Windows-1252. Throws FileError.
    static IniText Read(const std::string& path)
    {
        IniText ini;
        std::string bytes = BytesOf(path);
        ini.marked = bytes.starts_with(kByteOrderMark);
        const std::string text = DecodeFile(std::move(bytes));
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size());
            std::string line = text.substr(at, end - at);
            if (line.ends_with('\r'))
                line.pop_back();
            ini.lines.push_back(std::move(line));
            at = end + 1;
        }
        return ini;
    }
    [[nodiscard]] std::string Bytes() const
    {
        std::string bytes(marked ? kByteOrderMark : std::string_view());
        for (const std::string& line : lines)
            bytes.append(line).append("\r\n");
        return bytes;
    }
};

std::optional<std::string_view> SectionName(std::string_view line)
{
    line = Stripped(line);
    const auto end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos)
        return std::nullopt;
    return Stripped(line.substr(1, end - 1));
}

bool IsKey(std::string_view line, std::string_view key)
{
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || Stripped(line).starts_with(';'))
        return false;
    return EqualsIgnoringCase(Stripped(line.substr(0, equals)), Stripped(key));
}

/// Where a section and a key of it are.
struct Place {
    bool section = false;
    std::size_t end = 0;  ///< after the last line of the section that is not blank
    std::optional<std::size_t> key;
};

Place Find(const std::vector<std::string>& lines, std::string_view section, std::string_view key)
{
    Place place;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (const auto name = SectionName(lines[at])) {
            if (place.section)
                break;
            place.section = EqualsIgnoringCase(*name, Stripped(section));
            place.end = at + 1;
        } else if (place.section) {
            if (!Stripped(lines[at]).empty())
                place.end = at + 1;
            if (IsKey(lines[at], key)) {
                place.key = at;
                break;
            }
        }
    }
    return place;
}

std::string_view Unquoted(std::string_view value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::optional<std::string> ValueOf(const std::string& file, const std::string& section,
                                   const std::string& key)
{
    try {
        const IniText ini = IniText::Read(file);
        const Place place = Find(ini.lines, section, key);
        if (!place.key)
            return std::nullopt;
        const std::string& line = ini.lines[*place.key];
        return std::string(Unquoted(Stripped(std::string_view(line).substr(line.find('=') + 1))));
    } catch (const FileError&) {
        return std::nullopt;  // A file that cannot be read counts as empty.
    }
}

void SetLine(IniText& ini, const std::string& section, const std::string& key,
             const std::string& line)
{
    const Place place = Find(ini.lines, section, key);
    if (place.key) {
        ini.lines[*place.key] = line;
    } else if (place.section) {
        ini.lines.insert(ini.lines.begin() + static_cast<std::ptrdiff_t>(place.end), line);
    } else {
        ini.lines.push_back("[" + section + "]");
        ini.lines.push_back(line);
    }
}

/// A value is one line.
std::string OneLine(std::string value)
{
    value.erase(std::min(value.find_first_of("\r\n"), value.size()));
    return value;
}

}  // namespace

void clsIni::WriteString(const std::string& section, const std::string& key,
                         const std::string& value)
{
    if (file_.empty())
        return;
    try {
        IniText ini = IniText::Read(file_);
        SetLine(ini, section, key, key + "=" + OneLine(value));
        ReplaceFile(file_, ini.Bytes());
    } catch (const FileError&) {
        // Not reported, on purpose. The existing file stays as it was, even if it could not be
        // read.
    }
}

void clsIni::WriteLong(const std::string& section, const std::string& key, std::int32_t value)
{
    WriteString(section, key, std::to_string(value));
}

std::string clsIni::GetString(const std::string& section, const std::string& key,
                              const std::string& fallback) const
{
    return Left(ValueOf(file_, section, key).value_or(fallback), kMostCharacters);
}

std::int32_t clsIni::GetLong(const std::string& section, const std::string& key,
                             std::int32_t fallback) const
{
    const auto value = ValueOf(file_, section, key);
    if (!value)
        return fallback;
    // Reads digits up to the first other character. A number that is too large wraps around.
    std::uint32_t number = 0;
    std::size_t at = value->starts_with('-') || value->starts_with('+') ? 1 : 0;
    for (; at < value->size() && (*value)[at] >= '0' && (*value)[at] <= '9'; ++at)
        number = number * 10 + static_cast<std::uint32_t>((*value)[at] - '0');
    return static_cast<std::int32_t>(value->starts_with('-') ? 0U - number : number);
}

}  // namespace clb
