#include "tests/support/BackAndForth.h"

#include <algorithm>

#include "engine/rows/Connection.h"
#include "history/History.h"

namespace clb {
namespace {

constexpr std::int64_t kEverything = 1'000'000'000;

Connection Opened(const std::string& file)
{
    Connection connection;
    connection.Open("Data Source=" + file);
    return connection;
}

/// The tables may have been changed before there was a history that this could end.
std::vector<std::string> SchemaOf(const TableDump& dump)
{
    std::vector<std::string> schema;
    std::copy_if(dump.lines.begin(), dump.lines.end(), std::back_inserter(schema),
                 [](const std::string& line) { return line.starts_with("sqlite_master|"); });
    return schema;
}

class Walk {
public:
    explicit Walk(std::string file) : file_(std::move(file)), connection_(Opened(file_)) {}

    WayBack Run(const TableDump& start)
    {
        const TableDump now = Tables();
        std::size_t steps = 0;
        try {
            steps = Done(history_.Undo(kEverything));
        } catch (const HistoryRefusal& refusal) {
            return Refused(refusal.what(), now);
        }
        const bool ended = !history_.EndedAt().empty() || SchemaOf(Tables()) != SchemaOf(start);
        if (!ended && Tables() != start)
            return Wrong("everything undone", start);
        if (Done(history_.Redo(static_cast<std::int64_t>(steps))) != steps)
            return {Past::Wrong, "not every step was redone"};
        if (Tables() != now)
            return Wrong("everything redone", now);
        Done(history_.Redo(kEverything));
        return {ended ? Past::Ended : Past::Whole, ""};
    }

private:
    [[nodiscard]] TableDump Tables() const { return WithoutHistory(DumpOf(file_)); }
    std::size_t Done(const HistoryOutcome& outcome)
    {
        End();
        return outcome.steps.size();
    }
    void End()
    {
        connection_.Settle();
        history_.End();
    }
    WayBack Refused(const std::string& sentence, const TableDump& now)
    {
        End();
        if (Tables() != now)
            return Wrong("after a refusal", now);
        if (!sentence.ends_with("Nothing was changed."))
            return {Past::Wrong, "refused without a sentence: " + sentence};
        return {Past::Refused, sentence};
    }
    [[nodiscard]] WayBack Wrong(const std::string& when, const TableDump& expected) const
    {
        return {Past::Wrong, when + ":\n" + Difference(expected, Tables())};
    }

    std::string file_;
    Connection connection_;
    History history_{connection_, [] { return *Date::Of(2006, 3, 5); }, "back and forth"};
};

}  // namespace

WayBack GoBackAndForth(const std::string& file, const TableDump& start)
{
    try {
        return Walk(file).Run(start);
    } catch (const std::exception& error) {
        return {Past::Wrong, error.what()};
    }
}

}  // namespace clb
