// Statements that the import of OFX files takes as they are.
#pragma once
#include <string>

#include "intake/StatementSurvey.h"
#include "statements/form/StatementReader.h"
#include "statements/source/SourceFile.h"

namespace clb {

/// The file's text after the repair of its line ends, if the import of OFX files takes it whole and
/// right: one account, an identifier of its own on every row, and the same dates, amounts and texts
/// as the reader found. Otherwise empty.
[[nodiscard]] std::string SpecifiedText(const SourceFile& file, const StatementAnswers& answers,
                                        const IStatementReader& reader,
                                        const StatementSurvey& survey);

}  // namespace clb
