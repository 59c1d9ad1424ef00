// Generates random sessions of a user.
#pragma once
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "json/ValueJson.h"

namespace clb {

/// One thing that a user does: its requests, of which usually one writes.
struct Action {
    std::string kind;  ///< "add", "edit", "delete", "split", "import", ...
    std::vector<Json> requests;
    std::string price;  ///< what the quote service answers during it
};

/// The actions between a start of the program and its end.
struct Sitting {
    std::vector<Action> actions;
    /// Statement files that it imports: name in the program folder, and bytes.
    std::vector<std::pair<std::string, std::string>> files;
};

/// Generates sessions over the accounts of FirstStatements. The same seed gives the same session.
/// "%HOME%" in a request means the program folder. Each action shows the view that it needs first,
/// so that sittings do not depend on what was shown before.
class SessionScript {
public:
    explicit SessionScript(std::uint32_t seed) : random_(seed) {}

    /// Returns a sitting with up to three actions.
    Sitting NextSitting();

    /// Statements that fill the delivered database with five accounts and their rows.
    static std::vector<std::string> FirstStatements();
    /// Statements that convert a file of schema version 2 back to version 0 or 1.
    static std::vector<std::string> StatementsBackTo(int version);

private:
    Action NextAction(Sitting& sitting);
    Action AddTransaction();
    Action EditTransaction();
    Action OnTransaction(const std::string& kind);
    Action Split();
    Action BudgetLine();
    Action CopyBudget();
    Action Holding();
    Action Loan();
    Action Account();
    Action EditAccount();
    Action ImportOfx(Sitting& sitting);
    Action ImportQif(Sitting& sitting);
    Action Quotes();
    Action Export();
    Action Options();
    Action LeaveRow();
    Action TakeSteps(const std::string& kind);

    int Number(int from, int to);
    std::string Money();
    std::string Text();
    std::string Register();
    std::string Category();
    Json Month();

    std::mt19937 random_;
    int made_ = 0;
};

}  // namespace clb
