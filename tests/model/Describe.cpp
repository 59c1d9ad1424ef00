// Describes actions in words, with what they mean at their place.

#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

std::string Number(std::size_t number)
{
    return std::to_string(number);
}

std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

}  // namespace

std::string ModelWindow::Describe(const Action& action) const
{
    std::string name = NameOf(action.deed);
    const auto cell = [&] {
        return " (row " + Number(RowOf(action.first)) + ", column " +
               Number(Around(action.second, ColumnsOf(view_).size()) + 1) + ")";
    };
    switch (action.deed) {
        case Deed::Press: {
            const std::size_t node = Around(action.first, tree_.size());
            return name + " " + Number(node + 1) + " " + Quoted(tree_[node].text);
        }
        case Deed::Month: return name + " " + Number(Around(action.first, 12) + 1);
        case Deed::Year: return name + " " + Years()[Around(action.first, Years().size())];
        case Deed::Click: return name + cell();
        case Deed::Fold: return name + " (row " + Number(RowOf(action.first)) + ")";
        case Deed::Type:
        case Deed::Begin: {
            const auto* texts =
                ColumnsOf(view_)[Around(action.second, ColumnsOf(view_).size())].texts;
            return name + cell() +
                   (texts ? " " + Quoted((*texts)[Around(action.third, texts->size())].text)
                          : " that takes nothing");
        }
        case Deed::DeleteByMenu:
        case Deed::DeleteByButton: return name + (action.first != 0 ? " Yes" : " No");
        case Deed::Split:
            return name + " " +
                   Quoted(SplitAmounts()[Around(action.first, SplitAmounts().size())].text) +
                   (action.second != 0 ? " OK" : " Cancel");
        case Deed::ImportMarkup:
        case Deed::ImportRecords: {
            const Statement statement = action.deed == Deed::ImportMarkup
                                            ? Statement::Markup(action.first)
                                            : Statement::Records(action.first);
            static const char* const answers[] = {"create", "create", "map", "map", "cancel"};
            return name + ", asked for the account: " + answers[Around(action.second, 5)] + " " +
                   std::to_string(action.third) + "\n" + statement.Text();
        }
        case Deed::Options:
            return name + ": row " + std::to_string(action.first) +
                   (action.second % 2 == 1 ? " on" : " off") +
                   (action.third != 0 ? " OK" : " Cancel");
        case Deed::Quotes:
            return name + " of day " + std::to_string(action.first) +
                   (action.second != 0 ? ", request " + std::to_string(action.second) + " fails"
                                       : std::string());
        case Deed::Undo:
        case Deed::Redo:
            return name + " " + std::to_string(action.first % 4 + 1) + " times" +
                   (action.second % 2 == 1 ? " after saving the row" : "");
        case Deed::GoBackTo: return name + ": " + std::to_string(action.first);
        case Deed::Kill:
        case Deed::Reopen:
            return name + " on " + PresentDays()[Around(action.first, PresentDays().size())];
        case Deed::Spin: return name + (action.first % 2 == 1 ? " up" : " down");
        default: return name;
    }
}

}  // namespace clb::model
