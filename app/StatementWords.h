// The words in which the user is asked about a statement file.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "base/Date.h"
#include "statements/form/StatementReader.h"

namespace clb::statement_words {

/// The caption of a question's list.
[[nodiscard]] std::string CaptionOf(StatementQuestion question);
/// An option of a question as its list shows it.
[[nodiscard]] std::string OptionText(StatementQuestion question, const std::string& option);
/// Says in a sentence or two what the file leaves open, and why.
[[nodiscard]] std::string Explain(const std::string& source,
                                  const std::vector<OpenQuestion>& questions);
/// A day that nobody can read in another order: "3 Apr 2026".
[[nodiscard]] std::string DayText(const Date& date);
/// The text in one line, cut to so many characters.
[[nodiscard]] std::string Shortened(const std::string& text, std::size_t characters);
/// "1 row", "2 rows".
[[nodiscard]] std::string Counted(std::size_t number, const std::string& one);

}  // namespace clb::statement_words
