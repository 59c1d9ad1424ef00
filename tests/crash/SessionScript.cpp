#include "tests/crash/SessionScript.h"

#include "tests/crash/StatementText.h"

namespace clb {
namespace {

Json Click(const std::string& node)
{
    return {{"do", "click"}, {"text", node}};
}
Json Edit(const Json& row, int column, const std::string& text)
{
    return {{"do", "edit"}, {"row", row}, {"col", column}, {"text", text}};
}
Json Move(const Json& row, int column)
{
    return {{"do", "move"}, {"row", row}, {"col", column}};
}
Json Menu(const std::string& item)
{
    return {{"do", "menu"}, {"item", item}};
}
Json AnswerForm(const std::string& form, const Json& steps)
{
    return {{"do", "answer"}, {"form", form}, {"steps", steps}};
}
const Json kSave = {{"do", "save"}};
const Json kEscape = {{"do", "escape"}};
const Json kYes = {{"do", "answer"}, {"box", "Yes"}};

}  // namespace

int SessionScript::Number(int from, int to)
{
    return from + static_cast<int>(random_() % static_cast<unsigned>(to - from + 1));
}

std::string SessionScript::Money()
{
    std::string text = (Number(0, 2) == 0 ? "" : "-") + std::to_string(Number(0, 99999));
    const int decimals = Number(0, 4);
    for (int digit = 0; digit < decimals; ++digit)
        text += (digit == 0 ? "." : "") + std::to_string(Number(0, 9));
    return text;
}

std::string SessionScript::Text()
{
    static const char* const words[] = {"Grocer",       "It's rent", "Caf\u00e9", "50% off",
                                        "\u65e5\u672c", "a|b",       "Taxi",      "\"quoted\"",
                                        "Pay",          "Books",     "",          "x"};
    std::string text;
    for (int word = Number(1, Number(0, 9) == 0 ? 200 : 4); word > 0; --word)
        text += std::string(text.empty() ? "" : " ") + words[Number(0, 11)];
    return text;
}

std::string SessionScript::Register()
{
    static const char* const accounts[] = {"Checking", "Wallet", "Visa"};
    return accounts[Number(0, 2)];
}

std::string SessionScript::Category()
{
    static const char* const categories[] = {"Food", "Rent", "Travel", "Wages", "(none)", "Books"};
    return Number(0, 5) == 0 ? "New " + std::to_string(++made_) : categories[Number(0, 5)];
}

Json SessionScript::Month()
{
    return {{"do", "set"}, {"control", "cmbPeriod"}, {"to", Number(2, 4)}};
}

Action SessionScript::AddTransaction()
{
    Action action{"add", {Month(), Click(Register())}, ""};
    for (int rows = Number(1, 2); rows > 0; --rows) {
        action.requests.push_back(Edit("new", 1, "2006-03-" + std::to_string(Number(10, 28))));
        action.requests.push_back(Edit("new", 2, Text()));
        action.requests.push_back(Edit("new", 3, Money()));
        if (Number(0, 1) == 0)
            action.requests.push_back(Edit("new", 5, Category()));
        action.requests.push_back(Edit("new", 6, Text()));
        action.requests.push_back(kSave);
    }
    return action;
}

Action SessionScript::EditTransaction()
{
    const int row = Number(1, 4);
    Action action{"edit", {Month(), Click(Register()), Edit(row, 3, Money())}, ""};
    if (Number(0, 1) == 0)
        action.requests.push_back(Edit(row, 5, Category()));
    if (Number(0, 1) == 0)
        action.requests.push_back(Edit(row, 2, Text()));
    action.requests.push_back(kSave);
    return action;
}

Action SessionScript::LeaveRow()
{
    const int row = Number(1, 3);
    return {"edit",
            {Month(), Click(Register()), Edit(row, 3, Money()), Move(row + 1, 2),
             Edit(row, 2, Text()), Click(Number(0, 1) == 0 ? "Budget" : "Net Worth")},
            ""};
}

Action SessionScript::OnTransaction(const std::string& kind)
{
    const Json row = Move(Number(1, 4), 1);
    if (kind == "delete")
        return {kind, {Month(), Click(Register()), row, kYes, Menu("mnuE_Delete")}, ""};
    const char* const item = Number(0, 1) == 0 ? "mnuE_MovePrev" : "mnuE_MoveNext";
    return {kind, {Month(), Click(Register()), row, Menu(item)}, ""};
}

Action SessionScript::Split()
{
    const Json steps = Json::array(
        {{{"set", "txtNew"}, {"to", std::to_string(Number(1, 500))}}, {{"press", "btnOK"}}});
    return {"split",
            {Month(), Click(Register()), Move(Number(1, 3), 3), AnswerForm("frmSplit", steps),
             Menu("mnuE_Split")},
            ""};
}

Action SessionScript::BudgetLine()
{
    Action action{"budget", {Month(), Click("Budget")}, ""};
    switch (Number(0, 3)) {
        case 0:
            action.requests.insert(action.requests.end(),
                                   {Edit("new", 1, Category()), Edit("new", 2, Money()),
                                    Edit("new", 6, "Household"), kSave});
            break;
        case 1:
            action.requests.insert(action.requests.end(),
                                   {Move(Number(2, 6), 1), kYes, Menu("mnuE_Delete")});
            break;
        default:
            action.requests.insert(action.requests.end(), {Edit(Number(2, 6), 2, Money()), kSave});
            break;
    }
    return action;
}

Action SessionScript::CopyBudget()
{
    return {"copy", {Month(), Click("Budget"), Menu("mnuE_Copy")}, ""};
}

Action SessionScript::Holding()
{
    Action action{"holding", {Click("Broker")}, ""};
    const int what = Number(0, 3);
    if (what == 0) {
        action.requests.insert(action.requests.end(),
                               {Move(Number(1, 2), 1), kYes, Menu("mnuE_Delete")});
        return action;
    }
    const Json row = what == 1 ? Json("new") : Json(Number(1, 2));
    action.requests.insert(action.requests.end(),
                           {Edit(row, 1, what == 1 ? "SYM" + std::to_string(Number(1, 9)) : "ACME"),
                            Edit(row, 2, Text()), Edit(row, 3, "2005-12-01"),
                            Edit(row, 4, std::to_string(Number(1, 999)) + ".125"),
                            Edit(row, 5, Money()), Edit(row, 7, Money()), kSave});
    return action;
}

Action SessionScript::Loan()
{
    Action action{"loan", {Click("House")}, ""};
    const int what = Number(0, 3);
    if (what == 0) {
        action.requests.insert(action.requests.end(), {Move(1, 1), kYes, Menu("mnuE_Delete")});
        return action;
    }
    const Json row = what == 1 ? Json("new") : Json(1);
    action.requests.insert(action.requests.end(),
                           {Edit(row, 1, Text()), Edit(row, 2, Money()), Edit(row, 3, Money()),
                            Edit(row, 4, "4.75"), kSave});
    return action;
}

Action SessionScript::Account()
{
    const std::string number = std::to_string(++made_);
    return {"account",
            {Click("Net Worth"), Edit("new", 1, "Account " + number),
             Edit("new", 2, Number(0, 1) == 0 ? "Bank" : "Cash"), Edit("new", 3, "N-" + number),
             Edit("new", 4, Money()), kSave},
            ""};
}

/// Changes the number, which the rows follow, or the opening balance, or the whole account.
Action SessionScript::EditAccount()
{
    Action action{"account", {Click("Net Worth")}, ""};
    const int row = Number(1, 6);
    switch (Number(0, 3)) {
        case 0:
            action.requests.push_back(Edit(row, 3, "R-" + std::to_string(++made_)));
            action.requests.push_back(kSave);
            break;
        case 1:
            action.requests.insert(action.requests.end(), {Move(6, 1), kYes, Menu("mnuE_Delete")});
            break;
        default:
            action.requests.push_back(Edit(row, 4, Money()));
            action.requests.push_back(kSave);
            break;
    }
    return action;
}

Action SessionScript::ImportOfx(Sitting& sitting)
{
    const bool known = Number(0, 2) > 0;
    const std::string account = known ? "B-1" : "U-" + std::to_string(++made_);
    const std::string name = "statement" + std::to_string(sitting.files.size()) + ".ofx";
    sitting.files.emplace_back(name, OfxText(account, random_, Number(1, 60)));
    Action action{"import", {{{"do", "answer"}, {"file", "%HOME%/" + name}}}, ""};
    const Json steps = Json::array({{{"set", "txtDescription"}, {"to", "Account " + account}},
                                    {{"choose", "cmbAccountType"}, {"to", "Credit Card"}},
                                    {{"press", "btnOK"}}});
    if (!known)
        action.requests.push_back(AnswerForm("frmSelectAccount", steps));
    action.requests.push_back(Menu("mnuF_Import"));
    return action;
}

Action SessionScript::ImportQif(Sitting& sitting)
{
    const std::string name = "statement" + std::to_string(sitting.files.size()) + ".qif";
    sitting.files.emplace_back(name, QifText(random_, Number(1, 40)));
    const Json steps = Json::array({{{"option", "optAccount(1)"}},
                                    {{"choose", "cmbAccountID"}, {"to", Register()}},
                                    {{"press", "btnOK"}}});
    return {"import",
            {Month(),
             {{"do", "answer"}, {"file", "%HOME%/" + name}},
             AnswerForm("frmSelectAccount", steps),
             Menu("mnuF_Import")},
            ""};
}

Action SessionScript::Quotes()
{
    const std::string price = std::to_string(Number(1, 900)) + "." + std::to_string(Number(0, 99));
    return {"quotes", {Click("Broker"), Menu("mnuT_UpdateQuotes")}, price};
}

Action SessionScript::Export()
{
    return {
        "export",
        {Click(Register()), {{"do", "answer"}, {"file", "%HOME%/out.ofx"}}, Menu("mnuF_Export")},
        ""};
}

Action SessionScript::Options()
{
    const Json steps = Json::array(
        {{{"set", "txtBankUrl"}, {"to", "https://bank.example/" + std::to_string(Number(1, 99))}},
         {{"check", {{"row", Number(1, 3)}}}, {"to", Number(0, 1) == 0}},
         {{"press", "btnOK"}}});
    return {"options", {AnswerForm("frmOptions", steps), Menu("mnuT_Options")}, ""};
}

/// Undoes or redoes a few steps, one by one.
Action SessionScript::TakeSteps(const std::string& kind)
{
    Action action{kind, {}, ""};
    for (int steps = Number(1, 3); steps > 0; --steps)
        action.requests.push_back(Menu(kind == "undo" ? "mnuY_Undo" : "mnuY_Redo"));
    return action;
}

Action SessionScript::NextAction(Sitting& sitting)
{
    switch (Number(0, 29)) {
        case 0:
        case 1:
        case 2: return AddTransaction();
        case 3:
        case 4: return EditTransaction();
        case 5: return LeaveRow();
        case 6:
        case 7: return OnTransaction("delete");
        case 8:
        case 9: return OnTransaction("move");
        case 10: return Split();
        case 11:
        case 12: return BudgetLine();
        case 13:
        case 14: return CopyBudget();
        case 15: return Holding();
        case 16: return Loan();
        case 17: return Account();
        case 18: return EditAccount();
        case 19: return ImportOfx(sitting);
        case 20: return ImportQif(sitting);
        case 21: return Quotes();
        case 22: return Options();
        case 23:
        case 24:
        case 25:
        case 26: return TakeSteps("undo");
        case 27:
        case 28: return TakeSteps("redo");
        default: return Export();
    }
}

Sitting SessionScript::NextSitting()
{
    Sitting sitting;
    for (int actions = Number(1, 3); actions > 0; --actions) {
        sitting.actions.push_back(NextAction(sitting));
        // Drops a refused row, so that the next action does not begin in it.
        sitting.actions.back().requests.insert(sitting.actions.back().requests.end(),
                                               {kEscape, kEscape});
    }
    return sitting;
}

}  // namespace clb
