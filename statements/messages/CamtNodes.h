// Elements of a message by their names without namespace prefixes.
#pragma once
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

/// The first child with this name; an empty node if there is none.
[[nodiscard]] pugi::xml_node Child(pugi::xml_node node, std::string_view name);
/// The first element at a path such as "Acct/Id/IBAN", always through first children.
[[nodiscard]] pugi::xml_node At(pugi::xml_node node, std::string_view path);
/// Text of the element itself, without spaces at its ends.
[[nodiscard]] std::string TextOf(pugi::xml_node node);
[[nodiscard]] std::string TextAt(pugi::xml_node node, std::string_view path);
/// The first text that one of the two paths has.
[[nodiscard]] std::string TextAt(pugi::xml_node node, std::string_view path,
                                 std::string_view other);
/// Whether the element's name without a prefix is this one. Quick: asked for millions of elements.
[[nodiscard]] bool IsNamed(pugi::xml_node node, std::string_view name);

/// An amount with its currency, without a sign.
struct CamtAmount {
    std::optional<Money> amount{};  ///< nothing if the text is not an exact amount
    std::string currency{};
};
[[nodiscard]] CamtAmount AmountOf(pugi::xml_node amount);
/// Reads "CRDT" or "DBIT": true for a credit. Nothing for other texts.
[[nodiscard]] std::optional<bool> IsCredit(std::string_view text);
/// The day of an element that holds a Dt or a DtTm, as it is written.
[[nodiscard]] std::optional<Date> DayOf(pugi::xml_node date);

/// Calls with each child of this name.
template <typename Call>
void ForEach(pugi::xml_node node, std::string_view name, const Call& call)
{
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        if (IsNamed(child, name))
            call(child);
}

}  // namespace clb
