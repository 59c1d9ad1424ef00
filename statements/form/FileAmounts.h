// The amounts of one file, with the decimal mark that the whole of it settles.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "statements/form/AmountText.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// Settles the decimal mark of a file and reads its amounts. A text that only one mark fits is read
/// with that mark; the file's mark is needed for texts such as "1,234".
class FileAmounts {
public:
    /// Takes an amount that is going to be read.
    void Add(std::string_view text);
    /// Takes another number of the file. It settles the mark if the amounts do not.
    void AddOther(std::string_view text) { others_.Add(text); }

    /// Whether amounts can only be read with a comma as decimal mark.
    [[nodiscard]] bool HasCommas() const;
    /// The question that remains under an answer, or nothing.
    [[nodiscard]] std::optional<OpenQuestion> Open(std::optional<char> answer) const;
    /// Reads an amount with the mark of the answer; without one, with the file's, or the proposed
    /// one if that is open. In a file that surely has both marks the answer is only for amounts
    /// that both fit. Returns nothing for what ReadAmount does not read.
    [[nodiscard]] std::optional<Money> Read(std::string_view text,
                                            std::optional<char> answer) const;

private:
    /// Whether some amounts can only be read with a point and others only with a comma.
    [[nodiscard]] bool IsMixed() const;
    [[nodiscard]] std::optional<char> Settled() const;
    [[nodiscard]] char Proposed() const;

    DecimalMarks amounts_;
    DecimalMarks others_;
    bool points_ = false;  ///< some such amounts have a point
    bool commas_ = false;
    std::string open_;  ///< the first amount that means something else under each mark
};

}  // namespace clb
