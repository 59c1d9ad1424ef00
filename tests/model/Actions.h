// The actions of a random user, for the program and for its model.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace clb::model {

/// What a user does. Its numbers choose the target. They count from the first item and wrap around,
/// so that an action is possible whatever came before it.
enum class Deed {
    Press,  ///< first: the tree's node
    Month,  ///< first: 0 = January
    Year,   ///< first: one of a few texts
    Spin,   ///< first: 1 up, 0 down
    Back,
    Forward,
    Click,  ///< first: row, second: column
    Type,   ///< first: row, second: column, third: the text
    Begin,  ///< the same as Type, but the cell stays in edit
    Fold,   ///< first: row; a heading's group is folded or opened
    Save,
    Escape,
    NewByMenu,
    NewByButton,
    DeleteByMenu,  ///< first: 0 = No
    DeleteByButton,
    MoveBack,
    MoveForward,
    Split,  ///< first: the second amount (0 keeps the proposed one), second: 0 = Cancel
    CopyBudget,
    Options,       ///< first: row, second: ticked, third: 0 = Cancel
    ImportMarkup,  ///< first: the file, second: the answer about the account, third: which account
    ImportRecords,
    Quotes,  ///< first: the day's prices, second: the request that fails, 0 = none
    Export,
    ImportOther,  ///< a file that is not a statement; the window stays disabled, so the program is
                  ///< ended and started again
    Reopen,       ///< closes the window and starts the program again; first: in which month
    Kill,         ///< the program is killed and started again; first: in which month
    Undo,         ///< first: how often; second: saves the row in edit first, as the window does
    Redo,
    GoBackTo,  ///< goes before or after a step in the dialog; first: the step
    Look,      ///< discards or saves the row in edit and visits all nodes of the tree
    Count
};

/// Rows of Click and Type that are not counted.
constexpr int kLastRow = -1;  ///< the line for a new row
constexpr int kCurrentRow = -2;

struct Action {
    Deed deed = Deed::Save;
    int first = 0;
    int second = 0;
    int third = 0;
};

const char* NameOf(Deed deed);

/// A text to type and what it means in its column: whether it is accepted, and its value, with
/// amounts and numbers in plain decimal. For an amount, a number or a date, an empty value is null.
struct Typed {
    std::string text;
    bool taken = true;
    std::string value;
};

/// The kind of content of a column.
enum class Content { Text, Type, Amount, Number, Date };

/// One column of a view's rows.
struct Column {
    Content content = Content::Text;
    bool typed = false;  ///< accepts typed text
    bool calculated = false;
    const std::vector<Typed>* texts = nullptr;  ///< texts to type into it
};

/// The columns of a view, 1 to 6, in order.
const std::vector<Column>& ColumnsOf(int view);
/// Second amounts of a split. The first one means the proposed amount.
const std::vector<Typed>& SplitAmounts();
const std::vector<std::string>& Years();
/// Days on which the program is started.
const std::vector<std::string>& PresentDays();

/// Wraps a number around: -1 is the last.
std::size_t Around(int number, std::size_t count);

/// Generates about this many actions. The same seed gives the same actions.
std::vector<Action> RandomActions(std::uint64_t seed, std::size_t count);

}  // namespace clb::model
