#include <iostream>
#include <memory>

#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Piece.h"
#include "cli/Program.h"
#include "json/ValueJson.h"
#include "user/FormUser.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

struct SplitOptions : FolderOptions, PieceOptions {
    std::optional<std::string> amount;
};

/// Types the second amount, if one is given, and presses OK. Cancels the dialog if it does not
/// accept the amount.
class AmountChoice : public IModalHost {
public:
    explicit AmountChoice(const std::optional<std::string>& amount) : amount_(amount) {}
    /// Whether the dialog accepted the amount.
    [[nodiscard]] bool Accepted() const { return accepted_; }

    void Run(Form& form) override
    {
        FormUser user(form);
        if (amount_)
            user.Set("txtNew", *amount_);
        accepted_ = user.Press("btnOK");
        if (!accepted_)
            user.Cancel();
    }

private:
    const std::optional<std::string>& amount_;
    bool accepted_ = false;
};

Json PieceJson(clsDatabase& data, std::int32_t number, std::int32_t piece)
{
    Recordset row;
    data.Fill(row,
              "SELECT SubSequence, Description, Amount FROM Trans WHERE Sequence = " +
                  std::to_string(number) + " AND SubSequence = " + std::to_string(piece),
              true);
    return {{"piece", piece},
            {"Description", ToJson(row.Get("Description"))},
            {"Amount", ToJson(row.Get("Amount"))}};
}

std::int32_t LastPiece(clsDatabase& data, std::int32_t number)
{
    Recordset last;
    data.Fill(last,
              "SELECT MAX( SubSequence ) AS LastPiece FROM Trans WHERE Sequence = " +
                  std::to_string(number),
              true);
    return ToLong(last.Get("LastPiece"));
}

std::string Report(const SplitOptions& options, std::int32_t number, const Json& first,
                   const Json& second)
{
    if (options.json)
        return ToLine({{"number", number}, {"pieces", Json::array({first, second})}});
    return "Split transaction " + std::to_string(number) + ": " +
           first["Amount"].get<std::string>() + " stays in piece " + first["piece"].dump() + ", " +
           second["Amount"].get<std::string>() + " goes to piece " + second["piece"].dump();
}

void SplitTransaction(const SplitOptions& options)
{
    AmountChoice choice(options.amount);
    Program program(OpenFolder(options.home), choice);
    const Piece piece = ShowPiece(program, options);
    program.Press(command_name::kSplit);
    if (!choice.Accepted())
        throw RuntimeError(errors::TypeMismatch,
                           "This is not an amount: " + options.amount.value_or(""));
    clsDatabase& data = program.Window().Data();
    const Json first = PieceJson(data, piece.number, piece.piece);
    const Json second = PieceJson(data, piece.number, LastPiece(data, piece.number));
    const std::string report = Report(options, piece.number, first, second);
    program.Finish();
    std::cout << report << '\n';
}

}  // namespace

void AddSplit(CLI::App& app, int&)
{
    auto options = std::make_shared<SplitOptions>();
    Command command(app, "split", "Split a transaction into two pieces");
    AddPiece(command, *options);
    command.Take("AMOUNT", options->amount,
                 "What goes to the new piece (default: half, in whole cents)");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options] { SplitTransaction(*options); });
}

}  // namespace clb
