// What a statement file loses of the transactions that are exported to it.
#pragma once
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "export/TextSet.h"

namespace clb {

/// The parts of an exported transaction that a file can lose. The texts are borrowed.
struct ExportedRow {
    std::string_view identifier;  ///< as written: its own, or the one made for the file
    std::optional<Date> postDate;
    bool hasAmount = true;
    std::string_view description;
    std::string_view notes;
    std::string_view checkID;
    std::string_view category;
    Month month;
};

/// Finds out which parts of exported transactions would not come back if the file were imported
/// into books without them. A statement file has no field for some parts and cuts some texts.
class ExportLosses {
public:
    explicit ExportLosses(std::string accountID);

    /// Takes the next transaction in the order of the file.
    void Add(const ExportedRow& row);
    /// One line for each loss, in the order of the file, then the counts of parts that no file has.
    [[nodiscard]] std::vector<std::string> Lines() const;
    /// 1-based numbers of the transactions that would come back changed, in the order of the file.
    [[nodiscard]] std::set<std::int32_t> Rows() const;

private:
    /// The encoding that a reader would guess from the characters so far.
    enum class Characters { Ascii, LookLikeUtf8, Windows1252 };

    void CheckIdentifier(const ExportedRow& row);
    void CheckTexts(const ExportedRow& row);
    void CheckCharacters(const ExportedRow& row);
    void CheckTags(const ExportedRow& row);
    void Check(const ExportedRow& row, const char* name, std::string_view text,
               const std::string& returned);
    void Report(const ExportedRow& row, const std::string& what);
    [[nodiscard]] std::string NameOf(const ExportedRow& row) const;
    [[nodiscard]] bool Misread() const { return characters_ == Characters::LookLikeUtf8; }
    /// Returns whether the text has characters beyond ASCII.
    bool TakeCharacters(std::string_view text);

    std::string accountID_;
    std::int32_t count_ = 0;
    std::vector<std::string> lines_;
    std::set<std::int32_t> rows_;
    TextSet identifiers_;
    Characters characters_ = Characters::Ascii;
    std::vector<std::int32_t>
        misread_;  // rows that would be misread if all characters look like UTF-8
    std::int32_t categories_ = 0;
    std::int32_t moved_ = 0;
};

}  // namespace clb
