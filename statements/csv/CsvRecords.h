// The records of a text with delimiters.
#pragma once
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// How a file divides its fields.
struct CsvDialect {
    char delimiter = ',';
    /// Every record is one quoted field that holds the record proper.
    bool wrapped = false;
};

/// A record. The fields are without their quotes and the spaces around them; they are valid until
/// the next record is read.
struct CsvRecord {
    std::size_t line = 0;  ///< where it begins, from 1
    std::string_view raw;  ///< as the file has it, without the end of its line
    std::vector<std::string_view> fields;

    /// The field, or an empty text if the record is shorter.
    [[nodiscard]] std::string_view Field(std::size_t index) const
    {
        return index < fields.size() ? fields[index] : std::string_view();
    }
    [[nodiscard]] bool IsBlank() const;
    /// Number of fields up to the last one that is not empty.
    [[nodiscard]] std::size_t Filled() const;
    /// Makes one field of this one and so many after it, with the delimiters between them.
    void Join(std::size_t at, std::size_t extra);
};

/// Goes through the records of a text once, from the beginning. Follows RFC 4180: a quoted field
/// may hold delimiters, ends of lines and doubled quotes. A quote that nothing closes, and one
/// inside a field, is a character like others. Lines end with LF, CR LF or CR.
class CsvRecords {
public:
    CsvRecords(std::string_view text, CsvDialect dialect) : text_(text), dialect_(dialect) {}
    /// Reads the next record. Returns false at the end of the text.
    bool Next(CsvRecord& record);

private:
    /// Takes the field at the current place, up to the delimiter or the end of the line.
    std::string_view TakeField();
    bool TakeQuoted(std::string_view& field);
    bool TakeApostrophes(std::string_view& field);
    /// The place of the quote that closes a field whose content begins here, or npos.
    [[nodiscard]] std::size_t Closing(std::size_t begin);
    [[nodiscard]] std::string_view Unquoted(std::string_view inside);
    [[nodiscard]] bool AtEndOfField(std::size_t at) const;
    [[nodiscard]] std::size_t AfterSpaces(std::size_t at) const;
    [[nodiscard]] bool IsLineEnd(std::size_t at) const
    {
        return text_[at] == '\n' || text_[at] == '\r';
    }
    void TakeLineEnd();
    void Unwrap(CsvRecord& record);

    std::string_view text_;
    CsvDialect dialect_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::size_t open_ = 0;  ///< quotes before this place close nothing and are not searched again
    std::size_t openApostrophe_ = 0;    ///< the same for apostrophes
    std::deque<std::string> unquoted_;  ///< fields of the record that held doubled quotes
};

}  // namespace clb
