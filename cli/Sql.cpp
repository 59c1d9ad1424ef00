#include <unistd.h>

#include <iostream>
#include <memory>

#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "engine/rows/Connection.h"
#include "history/SentSql.h"
#include "json/Reply.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

struct SqlOptions {
    std::string folder;
    std::string statement;
};

/// Runs the SQL statement and returns the reply's line. The line is complete before anything is
/// made durable, so that too little memory for it takes the statement back.
std::string Reply(const SqlOptions& options, int& exitCode)
{
    RemoveProgramLeftovers(options.folder);
    try {
        Connection connection;
        connection.Open("Data Source=" + options.folder + "/db/clb.mdb");
        History history(
            connection, [] { return SystemClock().Now(); }, std::to_string(getpid()));
        std::string reply = ToLine(GoodReply(RunSent(connection, history, options.statement)));
        Interruption::Check();
        connection.Settle();
        exitCode = 0;
        return reply;
    } catch (const RuntimeError& error) {
        exitCode = 1;
        return ToLine(ErrorReply(error.Number(), error.what()));
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
    command.Run([options, &exitCode] { std::cout << Reply(*options, exitCode) << '\n'; });
}

}  // namespace clb
