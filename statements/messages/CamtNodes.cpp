#include "statements/messages/CamtNodes.h"

#include <algorithm>

#include "statements/messages/ExactAmount.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

/// Texts up to this size are not gone through to count their elements.
constexpr std::size_t kFew = 4096;
constexpr std::size_t kShortestElement = std::string_view("<a/>").size();

/// In one pass, since names are short and many.
std::string_view WithoutPrefix(const char* name)
{
    const char* end = name;
    for (; *end != '\0'; ++end)
        if (*end == ':')
            name = end + 1;
    return {name, static_cast<std::size_t>(end - name)};
}

}  // namespace

void CamtTree::Read(std::string_view text)
{
    elements_.clear();
    text_ = text;
    whole_ = document_.load_buffer_inplace(text_.data(), text_.size(), pugi::parse_default,
                                           pugi::encoding_utf8);
    // Elements point to each other, so there is room for all of them from the start.
    elements_.reserve(text.size() <= kFew
                          ? text.size() / kShortestElement + 1
                          : static_cast<std::size_t>(std::count(text.begin(), text.end(), '<')));
    if (const pugi::xml_node root = document_.first_child())
        (void)Add(root);
}

CamtNode::Element* CamtTree::Add(pugi::xml_node node)
{
    CamtNode::Element& element = elements_.emplace_back();
    element.name = WithoutPrefix(node.name());
    element.node = node;
    const CamtNode::Element** place = &element.child;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_element) {
            CamtNode::Element* const added = Add(child);
            *place = added;
            place = &added->next;
        } else if (element.text == nullptr) {
            element.text = child.value();
        } else {
            element.hasMoreText = true;
        }
    }
    return &element;
}

std::string CamtNode::Attribute(const char* name) const
{
    return element_ == nullptr ? std::string() : Squeezed(element_->node.attribute(name).value());
}

std::string CamtNode::Text() const
{
    if (element_ == nullptr || element_->text == nullptr)
        return {};
    if (!element_->hasMoreText)
        return Squeezed(element_->text);
    std::string text;
    for (pugi::xml_node child = element_->node.first_child(); child; child = child.next_sibling())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    return Squeezed(text);
}

CamtNode Child(CamtNode node, std::string_view name)
{
    for (CamtNode child = node.First(); child; child = child.Next())
        if (child.IsNamed(name))
            return child;
    return {};
}

CamtNode At(CamtNode node, std::string_view path)
{
    while (node && !path.empty()) {
        const std::size_t slash = path.find('/');
        node = Child(node, path.substr(0, slash));
        path = slash == std::string_view::npos ? std::string_view() : path.substr(slash + 1);
    }
    return node;
}

std::string TextOf(CamtNode node)
{
    return node.Text();
}

std::string TextAt(CamtNode node, std::string_view path)
{
    return TextOf(At(node, path));
}

std::string TextAt(CamtNode node, std::string_view path, std::string_view other)
{
    std::string text = TextAt(node, path);
    return text.empty() ? TextAt(node, other) : text;
}

CamtAmount AmountOf(CamtNode amount)
{
    return {ExactAmount(TextOf(amount), '.'), amount.Attribute("Ccy")};
}

std::optional<bool> IsCredit(std::string_view text)
{
    if (text == "CRDT")
        return true;
    return text == "DBIT" ? std::optional(false) : std::nullopt;
}

std::optional<Date> DayOf(CamtNode date)
{
    const std::string text = TextAt(date, "Dt", "DtTm");
    if (text.size() < 10 || (text.size() > 10 && text.find_first_of("TtZz+- ", 10) != 10))
        return {};
    return Date::FromIso(text.substr(0, 10));
}

}  // namespace clb
