#include "tests/model/Actions.h"

#include <array>
#include <random>

namespace clb::model {
namespace {

Typed Is(const std::string& text)
{
    return {text, true, text};
}

Typed Refused(const std::string& text)
{
    return {text, false, ""};
}

const std::vector<Typed> kDescriptions = {
    Is("Savings"),   Is("checking"), Is("O'Neil's"),          Is("Visa"), Is(""), Is("Abroad"),
    Is("Old house"), Is(" spaced"),  Is(std::string(60, 'd'))};
const std::vector<Typed> kTypes = {Is("Bank"),        Is("Cash"),       Is("Credit Card"),
                                   Is("Investment"),  Is("Loan"),       {"bank", true, "Bank"},
                                   Refused("Stocks"), {"  ", true, ""}, Is("")};
const std::vector<Typed> kNumbers = {Is("1001"), Is("2002"), Is("C-1"), Is("O'Hara 7"),
                                     Is(""),     Is("900"),  Is("D-2"), Is("New Account"),
                                     Is("L-9"),  Is("9#9")};
const std::vector<Typed> kAmounts = {{"12.50", true, "12.5"},
                                     {"-1,234.56", true, "-1234.56"},
                                     {"(45)", true, "-45"},
                                     {"$3", true, "3"},
                                     {"0", true, "0"},
                                     {"", true, ""},
                                     Refused("abc"),
                                     Refused("1,23"),
                                     Refused("1e30"),
                                     {"0.00005", true, "0"},
                                     {"0.00015", true, "0.0002"},
                                     {"-17.255", true, "-17.255"},
                                     {"250", true, "250"},
                                     {"-80", true, "-80"},
                                     {" 1E3 ", true, "1000"},
                                     {"-0.004", true, "-0.004"},
                                     {"1234567.8949", true, "1234567.8949"},
                                     Refused("922337203685478")};
const std::vector<Typed> kDates = {Is("2006-03-05"), Is("2006-03-31"), Is("2006-02-28"),
                                   Is("2005-12-31"), Is(""),           Refused("2006-02-30"),
                                   Refused("soon"),  Is("2006-03-05"), Is("2006-03-05 12:30:00")};
const std::vector<Typed> kCategories = {Is("Food"),
                                        Is("food"),
                                        Is("Kid's"),
                                        Is("(none)"),
                                        Is(""),
                                        Is("Home"),
                                        Is("Travel"),
                                        Refused(std::string(51, 'x')),
                                        Is(std::string(50, 'x')),
                                        Is("A#1*[b]"),
                                        Is("Food")};
const std::vector<Typed> kGroups = {Is("Living"),
                                    Is("Fun"),
                                    Is("Kids'"),
                                    Is(""),
                                    Is("(none)"),
                                    Is("living"),
                                    Refused(std::string(51, 'g'))};
const std::vector<Typed> kNotes = {Is(""), Is("card 7"), Is("it's due"),
                                   Is("gr\xC3\xBC\xC3\x9F"
                                      "e")};
const std::vector<Typed> kChecks = {Is("1042"), Is(""), Is("ATM")};
const std::vector<Typed> kSymbols = {Is("ACME"), Is("GONE"), Is("X.Y"), Is(""), Is("ODD")};
const std::vector<Typed> kQuantities = {
    Is("10"), {"0.5", true, "0.5"}, {"1,250.25", true, "1250.25"}, Is(""), Refused("many")};

Column Fixed(Content content)
{
    return {content, false, false, nullptr};
}

Column Takes(Content content, const std::vector<Typed>& texts)
{
    return {content, true, false, &texts};
}

const Column kCalculated = {Content::Amount, false, true, nullptr};

}  // namespace

const std::vector<Column>& ColumnsOf(int view)
{
    static const std::vector<Column> netWorth = {Takes(Content::Text, kDescriptions),
                                                 Takes(Content::Type, kTypes),
                                                 Takes(Content::Text, kNumbers),
                                                 Takes(Content::Amount, kAmounts),
                                                 Fixed(Content::Amount),
                                                 Fixed(Content::Number)};
    static const std::vector<Column> budget = {Takes(Content::Text, kCategories),
                                               Takes(Content::Amount, kAmounts),
                                               Fixed(Content::Number),
                                               Fixed(Content::Number),
                                               Fixed(Content::Number),
                                               Takes(Content::Text, kGroups),
                                               kCalculated,
                                               kCalculated};
    static const std::vector<Column> accountType = {Takes(Content::Text, kDescriptions),
                                                    Takes(Content::Text, kNumbers),
                                                    Takes(Content::Amount, kAmounts),
                                                    Fixed(Content::Amount),
                                                    Fixed(Content::Number),
                                                    Fixed(Content::Text)};
    static const std::vector<Column> account = {Takes(Content::Date, kDates),
                                                Takes(Content::Text, kDescriptions),
                                                Takes(Content::Amount, kAmounts),
                                                Takes(Content::Text, kChecks),
                                                Takes(Content::Text, kCategories),
                                                Takes(Content::Text, kNotes),
                                                Fixed(Content::Text),
                                                Fixed(Content::Number),
                                                Fixed(Content::Number),
                                                Fixed(Content::Text),
                                                Fixed(Content::Number),
                                                Fixed(Content::Number)};
    static const std::vector<Column> investment = {Takes(Content::Text, kSymbols),
                                                   Takes(Content::Text, kDescriptions),
                                                   Takes(Content::Date, kDates),
                                                   Takes(Content::Number, kQuantities),
                                                   Takes(Content::Amount, kAmounts),
                                                   Takes(Content::Amount, kAmounts),
                                                   Takes(Content::Amount, kAmounts),
                                                   Fixed(Content::Text),
                                                   Fixed(Content::Number)};
    static const std::vector<Column> loan = {Takes(Content::Text, kDescriptions),
                                             Takes(Content::Amount, kAmounts),
                                             Takes(Content::Amount, kAmounts),
                                             Takes(Content::Number, kQuantities),
                                             Fixed(Content::Text),
                                             Fixed(Content::Number),
                                             kCalculated};
    static const std::array<const std::vector<Column>*, 6> views = {
        &netWorth, &budget, &accountType, &account, &investment, &loan};
    return *views.at(static_cast<std::size_t>(view - 1));
}

const std::vector<Typed>& SplitAmounts()
{
    static const std::vector<Typed> amounts = {
        Is(""), {"30", true, "30"}, {"-5.5", true, "-5.5"}, Refused("half"), {"0", true, "0"}};
    return amounts;
}

const std::vector<std::string>& PresentDays()
{
    static const std::vector<std::string> days = {"2006-03-15 12:00:00", "2006-12-31 23:59:59",
                                                  "2006-01-01", "2006-03-31"};
    return days;
}

const std::vector<std::string>& Years()
{
    static const std::vector<std::string> years = {"2006", "2005", "2006", "2007"};
    return years;
}

std::size_t Around(int number, std::size_t count)
{
    const auto size = static_cast<int>(count);
    return static_cast<std::size_t>(((number % size) + size) % size);
}

const char* NameOf(Deed deed)
{
    static const std::array<const char*, static_cast<std::size_t>(Deed::Count)> names = {
        "press a node",
        "choose a month",
        "enter a year",
        "spin the year",
        "month back",
        "month forward",
        "click a cell",
        "type into a cell",
        "begin to type",
        "fold or open a group",
        "save the row",
        "escape",
        "new record (menu)",
        "new record (button)",
        "delete (menu)",
        "delete (button)",
        "move a month back",
        "move a month on",
        "split",
        "copy the budget",
        "options",
        "import markup",
        "import records",
        "update quotes",
        "export",
        "import another file",
        "close and open again",
        "kill and open again",
        "undo",
        "redo",
        "go to a step of the history",
        "look at everything"};
    return names.at(static_cast<std::size_t>(deed));
}

namespace {

constexpr int kMarch = 2;
constexpr int kBudget = 1;        // a node of the tree
constexpr int kFirstAccount = 3;  // a node of the tree

/// Generates single deeds with given frequencies, and sequences of deeds that belong together.
class Generator {
public:
    explicit Generator(std::uint64_t seed) : engine_(seed) {}

    void AddTo(std::vector<Action>& actions)
    {
        switch (Below(40)) {
            case 0:
            case 1: return NewAccount(actions);
            case 2:
            case 3:
            case 4: return NewTransaction(actions);
            case 5:
            case 6: return NewRow(actions);
            case 7:
            case 8:
            case 9:
            case 10: return OnTransaction(actions);
            case 11: return Deletion(actions);
            case 12: return ImportTwice(actions);
            case 13: return InBudget(actions);
            default: actions.push_back(One());
        }
    }

private:
    int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
    int Any() { return Below(1000); }
    /// Mostly a stored row, sometimes the one in edit or the line for a new one.
    int Row()
    {
        const int kind = Below(8);
        return kind == 0 ? kLastRow : kind < 3 ? kCurrentRow : Any();
    }

    Action One()
    {
        static const std::vector<std::pair<Deed, int>> odds = {
            {Deed::Press, 14},        {Deed::Month, 3},        {Deed::Year, 1},
            {Deed::Spin, 1},          {Deed::Back, 3},         {Deed::Forward, 3},
            {Deed::Click, 6},         {Deed::Type, 24},        {Deed::Begin, 6},
            {Deed::Save, 8},          {Deed::Escape, 6},       {Deed::NewByMenu, 3},
            {Deed::NewByButton, 3},   {Deed::DeleteByMenu, 3}, {Deed::DeleteByButton, 2},
            {Deed::MoveBack, 2},      {Deed::MoveForward, 2},  {Deed::Split, 3},
            {Deed::CopyBudget, 4},    {Deed::Options, 4},      {Deed::ImportMarkup, 4},
            {Deed::ImportRecords, 4}, {Deed::Quotes, 4},       {Deed::Export, 5},
            {Deed::Reopen, 1},        {Deed::ImportOther, 1},  {Deed::Look, 4},
            {Deed::Fold, 3},          {Deed::Kill, 1},         {Deed::Undo, 8},
            {Deed::Redo, 5},          {Deed::GoBackTo, 2}};
        int total = 0;
        for (const auto& one : odds)
            total += one.second;
        int left = Below(total);
        for (const auto& [deed, odd] : odds)
            if ((left -= odd) < 0)
                return Of(deed);
        return {};
    }

    Action Of(Deed deed)
    {
        if (deed == Deed::Click || deed == Deed::Type || deed == Deed::Begin || deed == Deed::Fold)
            return {deed, Row(), Any(), Any()};
        if (deed == Deed::Options || deed == Deed::DeleteByMenu || deed == Deed::DeleteByButton)
            return {deed, deed == Deed::Options ? Any() : Below(4), Below(2), Below(4)};
        if (deed == Deed::Split)
            return {deed, Any(), Below(5), 0};
        if (deed == Deed::Quotes)
            return {deed, Any(), Below(4) == 0 ? 1 + Below(2) : 0, 0};
        // Mostly the month that has the most rows.
        if (deed == Deed::Month && Below(2) == 0)
            return {deed, kMarch, 0, 0};
        return {deed, Any(), Any(), Any()};
    }

    void Fill(std::vector<Action>& actions, int columns)
    {
        for (int column = 0; column < columns; ++column)
            if (Below(5) != 0)
                actions.push_back({Below(6) == 0 ? Deed::Begin : Deed::Type,
                                   column == 0 ? kLastRow : kCurrentRow, column, Any()});
        if (Below(5) != 0)
            actions.push_back({Deed::Save, 0, 0, 0});
    }

    /// Mostly discards unsaved changes: a refused row would prevent everything else.
    void Begin(std::vector<Action>& actions)
    {
        for (int count = Below(4) == 0 ? 0 : 2; count > 0; --count)
            actions.push_back({Deed::Escape, 0, 0, 0});
    }

    void Show(std::vector<Action>& actions, int node)
    {
        if (Below(2) == 0)
            actions.push_back({Deed::Month, kMarch, 0, 0});
        actions.push_back({Deed::Press, node, 0, 0});
    }

    void NewAccount(std::vector<Action>& actions)
    {
        Begin(actions);
        Show(actions, 0);
        if (Below(2) == 0)
            actions.push_back({Deed::NewByMenu, 0, 0, 0});
        Fill(actions, 4);
    }

    void NewTransaction(std::vector<Action>& actions)
    {
        Begin(actions);
        Show(actions, kFirstAccount);
        if (Below(2) == 0)
            actions.push_back({Deed::NewByButton, 0, 0, 0});
        Fill(actions, 6);
    }

    void NewRow(std::vector<Action>& actions)
    {
        Begin(actions);
        Show(actions, Any());
        Fill(actions, 7);
    }

    void OnTransaction(std::vector<Action>& actions)
    {
        static const std::vector<Deed> deeds = {Deed::MoveBack, Deed::MoveForward,  Deed::Split,
                                                Deed::Split,    Deed::DeleteByMenu, Deed::Type};
        Begin(actions);
        Show(actions, Below(2) == 0 ? kFirstAccount : Any());
        actions.push_back({Deed::Click, Below(2), Any(), 0});
        for (int count = 1 + Below(3); count > 0; --count)
            actions.push_back(
                Of(deeds[static_cast<std::size_t>(Below(static_cast<int>(deeds.size())))]));
    }

    void Deletion(std::vector<Action>& actions)
    {
        Begin(actions);
        Show(actions, Any());
        actions.push_back({Deed::Click, Any(), Any(), 0});
        if (Below(4) == 0)
            actions.push_back(Of(Deed::Type));
        actions.push_back(Of(Below(2) == 0 ? Deed::DeleteByMenu : Deed::DeleteByButton));
    }

    /// Imports the same file again later, when the account already has its rows.
    void ImportTwice(std::vector<Action>& actions)
    {
        Begin(actions);
        Action import = Of(Below(2) == 0 ? Deed::ImportMarkup : Deed::ImportRecords);
        actions.push_back(import);
        for (int count = Below(3); count > 0; --count)
            actions.push_back(One());
        import.second = 2;  // maps the account
        actions.push_back(import);
    }

    void InBudget(std::vector<Action>& actions)
    {
        Begin(actions);
        Show(actions, kBudget);
        for (int count = 1 + Below(4); count > 0; --count)
            actions.push_back(Of(Below(3) == 0 ? Deed::Fold : Deed::Type));
    }

    std::mt19937_64 engine_;
};

}  // namespace

std::vector<Action> RandomActions(std::uint64_t seed, std::size_t count)
{
    Generator generator(seed);
    std::vector<Action> actions;
    while (actions.size() < count)
        generator.AddTo(actions);
    return actions;
}

}  // namespace clb::model
