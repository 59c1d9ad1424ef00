#include "views/NodeTag.h"

namespace clb::node_tag {

std::string OfView(std::int32_t view)
{
    return std::to_string(view);
}

std::string OfAccount(std::int32_t view, const std::string& accountID)
{
    return OfView(view) + kDivider + accountID;
}

bool IsAccount(const std::string& tag)
{
    return tag.find(kDivider) != std::string::npos;
}

std::string AccountID(const std::string& tag)
{
    return IsAccount(tag) ? tag.substr(tag.find(kDivider) + 1) : std::string();
}

}  // namespace clb::node_tag
