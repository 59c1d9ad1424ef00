// The tags by which a tree node names what it shows.
#pragma once
#include <cstdint>
#include <string>

namespace clb::node_tag {

/// Stands between the view identifier and the account number.
inline constexpr char kDivider = '\x01';

/// Tag of a node that shows a view.
std::string OfView(std::int32_t view);
/// Tag of a node that shows an account.
std::string OfAccount(std::int32_t view, const std::string& accountID);
bool IsAccount(const std::string& tag);
/// The account number in a tag; empty if the node is not an account.
std::string AccountID(const std::string& tag);

}  // namespace clb::node_tag
