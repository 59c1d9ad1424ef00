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

/// One exported transaction, as far as a file can lose of it. The texts are borrowed.
struct ExportedRow {
    std::string_view identifier;  ///< as written: its own, or the numbered one
    std::optional<Date> postDate;
    bool hasAmount = true;
    std::string_view description;
    std::string_view notes;
    std::string_view checkID;
    std::string_view category;
    Month month;
};

/// Tells what of exported transactions does not come back when the file is imported into books
/// without them: a statement file has no place for it, or its texts end early.
class NotReturned {
public:
    explicit NotReturned(std::string accountID);

    /// The next transaction in the file's order.
    void Add(const ExportedRow& row);
    /// One line for each fault, in the file's order, then counts of what no file holds.
    [[nodiscard]] std::vector<std::string> Lines() const;
    /// 1-based places in the file of the transactions that do not come back as they are.
    [[nodiscard]] std::set<std::int32_t> Rows() const;

private:
    /// What the file's characters so far are for a reader that does not know.
    enum class Characters { Ascii, LookLikeUtf8, Windows1252 };

    void CheckIdentifier(const ExportedRow& row);
    void CheckTexts(const ExportedRow& row);
    void CheckCharacters(const ExportedRow& row);
    void CheckTags(const ExportedRow& row);
    void Check(const ExportedRow& row, const char* name, std::string_view text,
               const std::string& returned);
    void Tell(const ExportedRow& row, const std::string& what);
    [[nodiscard]] std::string Named(const ExportedRow& row) const;
    [[nodiscard]] bool Misread() const { return characters_ == Characters::LookLikeUtf8; }
    /// Whether the text has characters beyond ASCII.
    bool TakeCharacters(std::string_view text);

    std::string accountID_;
    std::int32_t count_ = 0;
    std::vector<std::string> lines_;
    std::set<std::int32_t> rows_;
    TextSet identifiers_;
    Characters characters_ = Characters::Ascii;
    std::vector<std::int32_t> misread_;  // rows that are, while all characters look like UTF-8
    std::int32_t categories_ = 0;
    std::int32_t moved_ = 0;
};

}  // namespace clb
