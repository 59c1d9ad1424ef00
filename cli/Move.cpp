#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Piece.h"
#include "cli/Program.h"
#include "json/ValueJson.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

struct MoveOptions : FolderOptions, PieceOptions {
    std::string by;
};

std::string Report(const MoveOptions& options, const Piece& piece, Month month)
{
    if (options.json)
        return ToLine({{"number", piece.number},
                       {"piece", piece.piece},
                       {"year", month.year},
                       {"period", month.period}});
    return "Moved transaction " + std::to_string(piece.number) + " to " + MonthText(month);
}

void MoveTransaction(const MoveOptions& options)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    const bool back = options.by == "-1";
    const Piece piece = ShowPiece(program, options);
    program.Press(back ? command_name::kMovePrevious : command_name::kMoveNext);
    const std::string report =
        Report(options, piece, back ? piece.month.Previous() : piece.month.Next());
    program.Finish();
    std::cout << report << '\n';
}

}  // namespace

void AddMove(CLI::App& app, int&)
{
    auto options = std::make_shared<MoveOptions>();
    Command command(app, "move", "Book a transaction to the month before or after");
    AddPiece(command, *options);
    command.Take("--by", options->by, "Months: -1 back, +1 forward")
        .Placeholder("-1|+1")
        .Required()
        .OneOf({"-1", "+1", "1"});
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { MoveTransaction(*options); });
}

}  // namespace clb
