#include "automation/Statements.h"
#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/Options.h"
#include "engine/Connection.h"

#include <iostream>
#include <memory>

namespace clb {
namespace {

struct SqlOptions {
    std::string folder;
    std::string statement;
};

Json Reply(const SqlOptions& options)
{
    try {
        Connection connection;
        connection.Open("Data Source=" + options.folder + "/db/clb.mdb");
        const Json reply = GoodReply(RunStatement(connection, options.statement));
        Interruption::Check();
        connection.Settle();
        return reply;
    } catch (const RuntimeError& error) {
        return ErrorReply(error.Number(), error.what());
    }
}

}  // namespace

void AddSql(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<SqlOptions>();
    Command command(app, "sql",
                    "Run one SQL statement on a database and print its rows as one JSON object");
    command.Take("DIR", options->folder, "Program folder, which holds db/clb.mdb").Required();
    command.Take("STATEMENT", options->statement, "Statement of the program's SQL dialect")
        .Required();
    command.Run([options, &exitCode] {
        const Json reply = Reply(*options);
        std::cout << ToLine(reply) << '\n';
        exitCode = reply["ok"].get<bool>() ? 0 : 1;
    });
}

}  // namespace clb
