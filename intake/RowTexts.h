// Compares the texts of a statement's row with those of a stored row.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "statements/form/Statement.h"

namespace clb {

/// A text for comparisons: without blanks at its ends, single blanks inside, and case folded.
[[nodiscard]] std::string Comparable(std::string_view text);

/// Description and notes of a stored row. Imports of OFX and QIF files store "(blank)" for an empty
/// description, keep 50 characters of a text, and keep entities such as "&amp;" undecoded.
class StoredTexts {
public:
    StoredTexts(std::string_view description, std::string_view notes);

    [[nodiscard]] const std::vector<std::string>& Comparables() const { return texts_; }

private:
    std::vector<std::string> texts_;
};

enum class TextAgreement : std::uint8_t {
    None,
    Part,  ///< one of them lacks a text that the other has
    Whole
};

/// Name and text of a row that was read. It does not matter which of the two is stored as the
/// description: a row without a name is named by its text.
class RowTexts {
public:
    explicit RowTexts(const StatementRow& row);

    [[nodiscard]] TextAgreement With(const StoredTexts& stored) const;

private:
    struct Text {
        std::string whole;
        std::string stored;  ///< as much of it as an import stores
    };
    static bool Equal(const Text& text, const std::string& stored);

    std::vector<Text> texts_;
};

}  // namespace clb
