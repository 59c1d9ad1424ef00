// Goes back through the whole history of a book, and forth again.
#pragma once
#include <string>

#include "tests/crash/TableDump.h"

namespace clb {

/// How the history of a book ended a way back to its beginning.
enum class Past {
    Whole,    ///< every change was undone and redone
    Ended,    ///< a change of tables has ended what history lay before it
    Refused,  ///< rows were changed without the program; nothing was undone, and a sentence says so
    Wrong
};

struct WayBack {
    Past past = Past::Wrong;
    std::string why;  ///< the sentence of a refusal, or what was wrong
};

/// Undoes the history of the file in one go, and redoes it. In between, the tables must be as they
/// were at the start, and afterwards as they are now, every cell and every row's identity. Then
/// redoes what was undone before, so that the file may differ from what it was.
WayBack GoBackAndForth(const std::string& file, const TableDump& start);

}  // namespace clb
