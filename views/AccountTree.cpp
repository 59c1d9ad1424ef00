#include "views/AccountTree.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/AccountKind.h"
#include "data/clsDatabase.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

constexpr std::int32_t kImage = 6;
constexpr std::int32_t kSelectedImage = 7;

}  // namespace

std::int32_t AccountTree::Add(std::int32_t parent, const std::string& key, const std::string& text,
                              const std::string& tag)
{
    const std::int32_t node = tree_.Add(parent, key, text, kImage, kSelectedImage);
    tree_.Tag(node, tag);
    return node;
}

void AccountTree::Build(clsDatabase& data)
{
    // Read first: an error leaves the tree as it was.
    const std::vector<Line> lines = Stored(data);
    const Tree::Batch batch(tree_);
    whole_ = false;
    tree_.Clear();
    const std::int32_t root = Add(0, "", "Net Worth", node_tag::OfView(vwNetWorth));
    tree_.Expand(root, true);
    Add(root, "", "Budget", node_tag::OfView(vwBudget));

    std::string previousType;
    std::int32_t typeNode = root;
    for (const Line& line : lines) {
        if (line.type != previousType) {
            previousType = line.type;
            typeNode = Add(root, line.type, line.type, node_tag::OfView(vwAccountType));
            tree_.Expand(typeNode, true);
        }
        Add(typeNode, "", line.text, line.tag);
    }
    whole_ = true;
}

std::vector<AccountTree::Line> AccountTree::Stored(clsDatabase& data)
{
    Recordset accounts;
    data.Fill(accounts, "SELECT * FROM Account ORDER BY Type, Description", true);
    std::vector<Line> lines;
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const std::string type = ToText(accounts.Get("Type"));
        lines.push_back(
            {type, ToText(accounts.Get("Description")),
             node_tag::OfAccount(ViewFromAccountType(type), ToText(accounts.Get("AccountID")))});
    }
    return lines;
}

bool AccountTree::IsCurrent(clsDatabase& data) const
{
    std::vector<Line> shown;
    for (std::int32_t node = 1; node <= tree_.Count(); ++node)
        if (const TreeNode& line = tree_.Node(node); node_tag::IsAccount(line.tag))
            shown.push_back({line.parent > 1 ? tree_.Node(line.parent).text : std::string(),
                             line.text, line.tag});
    return shown == Stored(data);
}

std::int32_t AccountTree::Find(const std::string& tag) const
{
    for (std::int32_t node = 1; node <= tree_.Count(); ++node)
        if (tree_.Node(node).tag == tag)
            return node;
    return 0;
}

std::string AccountTree::SelectedTagPiece(std::int32_t index) const
{
    const auto pieces = Split(tree_.Node(tree_.Selected()).tag, node_tag::kDivider);
    if (index < 0 || index >= static_cast<std::int32_t>(pieces.size()))
        throw RuntimeError(errors::SubscriptOutOfRange, "Subscript out of range");
    return pieces[static_cast<std::size_t>(index)];
}

}  // namespace clb
