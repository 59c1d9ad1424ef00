#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// Settings in a text file of sections and keys:
///
///     [Settings]
///     BankUrl=https://bank.example/
///
/// Section and key names are compared without regard to case. Writing keeps every other line,
/// comments, blank lines and their order. A value is returned without blanks around it and without
/// one pair of quotes around it, cut to 99 characters. A file that cannot be read is as a missing
/// one; failures to write are not reported, and leave the former file whole.
class clsIni {
public:
    /// Full path of the file that all operations work on; empty until set.
    [[nodiscard]] const std::string& INIFile() const { return file_; }
    void INIFile(const std::string& path) { file_ = path; }

    void WriteString(const std::string& section, const std::string& key, const std::string& value);
    void WriteLong(const std::string& section, const std::string& key, std::int32_t value);
    /// The default when file, section or key are missing.
    [[nodiscard]] std::string GetString(const std::string& section, const std::string& key,
                                        const std::string& fallback = "") const;
    /// The number that the value begins with, 0 for another text; the default when the key is
    /// missing.
    [[nodiscard]] std::int32_t GetLong(const std::string& section, const std::string& key,
                                       std::int32_t fallback) const;

private:
    std::string file_;
};

}  // namespace clb
