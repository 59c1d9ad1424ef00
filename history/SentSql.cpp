#include "history/SentSql.h"

#include "json/RunSql.h"

namespace clb {

Json RunSent(Connection& connection, History& history, const std::string& sql)
{
    history.Begin("SQL");
    const History::Sent sent(history);
    return RunSql(connection, sql);
}

}  // namespace clb
