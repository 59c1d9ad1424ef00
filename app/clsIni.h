// The settings file.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// Settings in a text file of sections and keys:
///
///     [Settings]
///     BankUrl=https://bank.example/
///
/// Section and key names are compared without regard to case. Writing a key keeps every other line,
/// including comments and blank lines, in its order. A value is returned without spaces at its ends
/// and without one pair of quotes around it, cut to 99 characters. A file that cannot be read
/// counts as missing. A failure to write is not reported and leaves the existing file as it was.
class clsIni {
public:
    /// Full path of the file. Empty until it is set.
    [[nodiscard]] const std::string& INIFile() const { return file_; }
    void INIFile(const std::string& path) { file_ = path; }

    void WriteString(const std::string& section, const std::string& key, const std::string& value);
    void WriteLong(const std::string& section, const std::string& key, std::int32_t value);
    /// Returns the fallback if the file, the section or the key does not exist.
    [[nodiscard]] std::string GetString(const std::string& section, const std::string& key,
                                        const std::string& fallback = "") const;
    /// Returns the number at the start of the value, or 0 if there is none. Returns the fallback if
    /// the key does not exist.
    [[nodiscard]] std::int32_t GetLong(const std::string& section, const std::string& key,
                                       std::int32_t fallback) const;

private:
    std::string file_;
};

}  // namespace clb
