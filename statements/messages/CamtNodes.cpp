#include "statements/messages/CamtNodes.h"

#include <cstring>

#include "statements/messages/ExactAmount.h"
#include "statements/messages/RowText.h"

namespace clb {
bool IsNamed(pugi::xml_node node, std::string_view name)
{
    const char* const own = node.name();
    if (std::strncmp(own, name.data(), name.size()) == 0 && own[name.size()] == '\0')
        return true;
    const char* const colon = std::strchr(own, ':');
    return colon != nullptr && name == colon + 1;
}

pugi::xml_node Child(pugi::xml_node node, std::string_view name)
{
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        if (IsNamed(child, name))
            return child;
    return {};
}

pugi::xml_node At(pugi::xml_node node, std::string_view path)
{
    while (node && !path.empty()) {
        const std::size_t slash = path.find('/');
        node = Child(node, path.substr(0, slash));
        path = slash == std::string_view::npos ? std::string_view() : path.substr(slash + 1);
    }
    return node;
}

std::string TextOf(pugi::xml_node node)
{
    std::string text;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    return Squeezed(text);
}

std::string TextAt(pugi::xml_node node, std::string_view path)
{
    return TextOf(At(node, path));
}

std::string TextAt(pugi::xml_node node, std::string_view path, std::string_view other)
{
    std::string text = TextAt(node, path);
    return text.empty() ? TextAt(node, other) : text;
}

CamtAmount AmountOf(pugi::xml_node amount)
{
    return {ExactAmount(TextOf(amount), '.'), Squeezed(amount.attribute("Ccy").value())};
}

std::optional<bool> IsCredit(std::string_view text)
{
    if (text == "CRDT")
        return true;
    return text == "DBIT" ? std::optional(false) : std::nullopt;
}

std::optional<Date> DayOf(pugi::xml_node date)
{
    const std::string text = TextAt(date, "Dt", "DtTm");
    if (text.size() < 10 || (text.size() > 10 && text.find_first_of("TtZz+- ", 10) != 10))
        return {};
    return Date::FromIso(text.substr(0, 10));
}

}  // namespace clb
