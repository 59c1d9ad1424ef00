#include "app/Greeting.h"

#include "base/Product.h"
#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"
#include "views/MenuNames.h"

namespace clb {

bool IsFresh(clsDatabase& data)
{
    bool fresh = true;
    try {
        RawSql(data.Database())
            .Select("SELECT 1 WHERE EXISTS (SELECT 1 FROM Account) OR EXISTS (SELECT 1 FROM Trans)",
                    [&fresh](const RawSql::Row& /*row*/) { fresh = false; });
    } catch (const EngineError&) {
        return false;  // the commands that read the rows report the error
    }
    return fresh;
}

EmptyHint Greeting()
{
    EmptyHint greeting{std::string("Welcome to ") + product::kTitle,
                       "This book is still empty. Choose how you would like to begin.",
                       {}};
    greeting.ways = {
        {"Import a statement", command_name::kImport, "import",
         "Choose a file from your bank. The program makes the account for it."},
        {"Make an account", command_name::kNew, "account-bank",
         "Give it a name and a type, then enter what you earn and spend."},
        {"Look at the demo", kDemo, "tutorial",
         "See two years of a made-up household. Your own book stays as it is."},
    };
    greeting.greets = true;
    return greeting;
}

}  // namespace clb
