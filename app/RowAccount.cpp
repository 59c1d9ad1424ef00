#include "app/RowAccount.h"

#include "app/frmController.h"
#include "data/ViewColumns.h"
#include "views/NodeTag.h"

namespace clb {

std::string TagOfRowAccount(frmController& window)
{
    const GridRows& rows = window.Grid.Rows();
    const std::size_t row = window.Grid.Row();
    const AccountColumns& columns = *window.View().Definition().accounts;
    // The view's account follows what is typed, which may never have been saved.
    return node_tag::OfAccount(clsView::ViewFromAccountType(ToText(rows.Stored(row, columns.type))),
                               ToText(rows.Stored(row, columns.accountID)));
}

bool HasRowAccount(frmController& window)
{
    const std::size_t row = window.Grid.Row();
    return window.View().Definition().accounts != nullptr && row != 0 &&
           window.Grid.Rows().Kind(row) == GridRowKind::Data;
}

bool OpenRowAccount(frmController& window)
{
    if (!HasRowAccount(window))
        return false;
    const std::int32_t node = window.View().FindTreeNodeByTag(TagOfRowAccount(window));
    return node != 0 && window.PressNode(node) && window.window.Focus(window.Grid);
}

}  // namespace clb
