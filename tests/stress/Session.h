// The program under automation, as one of several that change a book, and what it reported.
#pragma once
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/stress/Transactions.h"
#include "tests/support/AutomationClient.h"

namespace clb {

/// Works in one register as a user does, and records each action as steps of its transaction.
class Session {
public:
    /// Starts the program. Calls `pause` between the requests of an action.
    Session(const std::string& folder, std::function<void()> pause);

    /// Shows the register of a month. Throws std::runtime_error if the program refuses.
    void Show(const std::string& account, Month month);
    /// Number, SubSequence and Amount of the shown rows as "12/0: -45.5".
    std::vector<std::string> ShownRows();

    // Actions on a piece of the shown register. They do nothing if it is not shown.
    void Edit(std::int32_t number, std::int32_t piece, Cell cell, const std::string& text);
    void Move(std::int32_t number, std::int32_t piece, std::int32_t direction);
    void Split(std::int32_t number, std::int32_t piece, std::int64_t amount);
    void Delete(std::int32_t number, std::int32_t piece);
    /// Enters a new row.
    void Add(const std::string& description, std::int64_t amount);

    /// Undoes or redoes the newest step, whichever program has made it. Records nothing.
    void TakeStep(bool undo);

    /// What was recorded since the last call, by the number of the transaction.
    std::map<std::int32_t, std::vector<ReportedStep>> TakeSteps()
    {
        return std::exchange(steps_, {});
    }
    /// Descriptions and amounts of the rows that were added since the last call.
    std::map<std::string, std::int64_t> TakeAdded() { return std::exchange(added_, {}); }
    /// Requests and replies since the last call, for messages.
    std::string TakeStory() { return std::exchange(story_, {}); }
    /// Whether a reply or a box since the last call said that the file is locked.
    bool TakeLocked() { return std::exchange(locked_, false); }
    /// What the program refused without a reason since the last call.
    std::string TakeTrouble() { return std::exchange(trouble_, {}); }
    int ExitCode() { return program_.ExitCode(); }

private:
    Json Ask(const Json& request);
    /// Evaluates an error or the text of a box.
    void Hear(const std::string& text);
    /// The events since the last call.
    Json Log();
    /// The number under which the grid shows the piece; 0 if it does not.
    std::int32_t RowOf(std::int32_t number, std::int32_t piece);
    bool GoTo(std::int32_t row);
    ReportedStep& Record(std::int32_t number, std::int32_t piece, ReportedStep::Kind kind);
    /// Records that the program did nothing, and why.
    void RecordRefusal(std::int32_t number, std::int32_t piece);
    /// Drops what was typed and not stored.
    void Escape();
    /// Enters a text into a cell and stores nothing yet; false if the program refused.
    bool Type(const Json& row, std::int32_t column, const std::string& text);

    AutomationClient program_;
    std::function<void()> pause_;
    Month shown_;
    std::map<std::int32_t, std::vector<ReportedStep>> steps_;
    std::map<std::string, std::int64_t> added_;
    std::string story_;
    std::string said_;  ///< the last error or box
    std::string trouble_;
    bool locked_ = false;
    // An answer that was queued for a question which was not asked.
    bool yesWaits_ = false;
    std::optional<std::int64_t> splitWaits_;
};

/// "-45.5" for -455000.
std::string AmountText(std::int64_t amount);

}  // namespace clb
