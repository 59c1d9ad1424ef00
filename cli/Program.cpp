#include "cli/Program.h"

#include <iostream>

#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "data/AccountKind.h"
#include "data/Backups.h"
#include "user/FormUser.h"
#include "views/NodeTag.h"

namespace clb {

Program::Program(const std::string& folder, IModalHost& forms, bool trial)
    : messages_(std::cerr),
      http_({product::kTitle, false, {}, {}}),
      controller_({folder, clock_, messages_, files_, shell_, pointer_, dates_, forms, printing_,
                   http_, "", !trial},
                  WindowMetrics())
{
    if (const auto failure = Backups(folder).BeforeUpgrade(clock_.Now()))
        std::cerr << *failure << '\n';
    controller_.Load();
}

Program::~Program()
{
    if (controller_.Loaded())
        controller_.Data().Database().Abandon();
}

void Program::Finish()
{
    Interruption::Check();
    controller_.Unload();
}

Month Program::PresentMonth() const
{
    const Date now = clock_.Now();
    return {now.Year(), now.Month()};
}

void Program::ChooseMonth(Month month)
{
    controller_.View().HoldRefresh(true);
    controller_.ChooseMonth(month.period - 1);
    controller_.EnterYear(std::to_string(month.year));
}

void Program::PressNode(const std::string& tag)
{
    const std::int32_t node = controller_.View().FindTreeNodeByTag(tag);
    if (node == 0)
        throw RuntimeError(errors::ElementNotFound, "There is nothing to show");
    controller_.View().HoldRefresh(true);
    controller_.PressNode(node);
    controller_.View().HoldRefresh(false);
}

void Program::PressAccount(const FoundAccount& account)
{
    PressNode(node_tag::OfAccount(ViewFromAccountType(account.type), account.id));
}

void Program::Press(const std::string& item)
{
    MenuItem* const command = controller_.menus.Find(item);
    if (!command || !command->Enabled())
        throw RuntimeError(errors::InvalidCall, "The command is disabled: " + item);
    command->Press();
}

void NoForms::Run(Form& form)
{
    FormUser(form).Cancel();
}

FoundAccount FindAccount(clsDatabase& data, const std::string& account)
{
    const std::string text = "'" + clsDatabase::ToSqlString(account) + "'";
    for (const char* column : {"AccountID", "Description"}) {
        Recordset found;
        data.Fill(found,
                  std::string("SELECT AccountID, Description, Type FROM Account WHERE ") + column +
                      " = " + text,
                  true);
        if (!found.Empty())
            return {ToText(found.Get("AccountID")), ToText(found.Get("Description")),
                    ToText(found.Get("Type"))};
    }
    throw RuntimeError(errors::ElementNotFound, account.empty() ? "There is no account yet."
                                                                : "No such account: " + account);
}

}  // namespace clb
