#include "app/TreeBalances.h"

#include <map>
#include <optional>
#include <vector>

#include "app/frmController.h"
#include "base/RuntimeError.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

/// Nothing if the sum of some balances is too large.
using Balance = std::optional<Money>;

Balance Sum(const Balance& one, const Balance& other)
{
    if (!one || !other)
        return std::nullopt;
    try {
        return *one + *other;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// The balances by the accounts' numbers, as the list of all accounts shows them.
std::map<std::string, Balance> Stored(clsDatabase& data)
{
    const Connection::Untraced untraced(data.Database());
    Recordset accounts;
    data.Fill(accounts, "SELECT AccountID, OpeningBalance, CurrentBalance FROM Account", true);
    std::map<std::string, Balance> balances;
    for (; !accounts.AtEnd(); accounts.MoveNext())
        balances[ToText(accounts.Get("AccountID"))] =
            Sum(ToMoney(accounts.Get("OpeningBalance")), ToMoney(accounts.Get("CurrentBalance")));
    return balances;
}

}  // namespace

void TreeBalances::Follow()
{
    if (!window_.GivenPorts().showsResults)
        return;
    const std::map<std::string, Balance> stored = Stored(window_.Data());
    Tree& tree = window_.TreeView;
    const auto count = static_cast<std::size_t>(tree.Count());
    std::vector<Balance> balances(count + 1, Money());
    std::vector<bool> shown(count + 1, false);
    // A node comes after its parent, so the sums are complete when the parent is reached.
    for (std::size_t node = count; node > 0; --node) {
        const TreeNode& line = tree.Node(static_cast<std::int32_t>(node));
        const auto found = stored.find(node_tag::AccountID(line.tag));
        if (node_tag::IsAccount(line.tag) && found != stored.end()) {
            balances[node] = found->second;
            shown[node] = true;
        }
        const auto parent = static_cast<std::size_t>(line.parent);
        if (shown[node]) {
            balances[parent] = Sum(balances[parent], balances[node]);
            shown[parent] = true;
        }
    }
    for (std::size_t node = 1; node <= count; ++node)
        tree.Figure(static_cast<std::int32_t>(node),
                    shown[node] && balances[node] ? balances[node]->Grouped() : std::string());
}

}  // namespace clb
