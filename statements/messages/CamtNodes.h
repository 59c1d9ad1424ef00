// Elements of a message by their names without namespace prefixes.
#pragma once
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

/// An element of a CamtTree; valid as long as the tree is. An empty one has no children and no
/// text.
class CamtNode {
public:
    struct Element {
        std::string_view name;  ///< without a prefix
        const Element* child = nullptr;
        const Element* next = nullptr;
        const char* text = nullptr;  ///< the first part of its own text
        bool hasMoreText = false;
        pugi::xml_node node{};
    };
    CamtNode() = default;
    explicit CamtNode(const Element* element) : element_(element) {}
    explicit operator bool() const { return element_ != nullptr; }
    /// The name is not empty.
    [[nodiscard]] bool IsNamed(std::string_view name) const
    {
        // Most names differ in their first letter already.
        return element_->name.size() == name.size() && element_->name[0] == name[0] &&
               element_->name == name;
    }
    [[nodiscard]] CamtNode First() const
    {
        return CamtNode(element_ != nullptr ? element_->child : nullptr);
    }
    [[nodiscard]] CamtNode Next() const { return CamtNode(element_->next); }
    /// Text of the element itself, without spaces at its ends.
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] std::string Attribute(const char* name) const;

private:
    const Element* element_ = nullptr;
};

/// The elements of a part of a message, laid out for many quick look-ups.
class CamtTree {
public:
    CamtTree() = default;
    explicit CamtTree(std::string_view text) { Read(text); }
    /// Reads another text in place of the one before. Its memory is used again.
    void Read(std::string_view text);
    /// Whether the text is XML. What was read before an error is there all the same.
    [[nodiscard]] bool IsWhole() const { return whole_; }
    [[nodiscard]] CamtNode Root() const
    {
        return CamtNode(elements_.empty() ? nullptr : elements_.data());
    }

private:
    CamtNode::Element* Add(pugi::xml_node node);

    std::string text_;  ///< the document refers to it
    pugi::xml_document document_;
    std::vector<CamtNode::Element> elements_;
    bool whole_ = false;
};

/// The first child with this name; an empty node if there is none.
[[nodiscard]] CamtNode Child(CamtNode node, std::string_view name);
/// The first element at a path such as "Acct/Id/IBAN", always through first children.
[[nodiscard]] CamtNode At(CamtNode node, std::string_view path);
[[nodiscard]] std::string TextOf(CamtNode node);
[[nodiscard]] std::string TextAt(CamtNode node, std::string_view path);
/// The first text that one of the two paths has.
[[nodiscard]] std::string TextAt(CamtNode node, std::string_view path, std::string_view other);

/// An amount with its currency, without a sign.
struct CamtAmount {
    std::optional<Money> amount{};  ///< nothing if the text is not an exact amount
    std::string currency{};
};
[[nodiscard]] CamtAmount AmountOf(CamtNode amount);
/// Reads "CRDT" or "DBIT": true for a credit. Nothing for other texts.
[[nodiscard]] std::optional<bool> IsCredit(std::string_view text);
/// The day of an element that holds a Dt or a DtTm, as it is written.
[[nodiscard]] std::optional<Date> DayOf(CamtNode date);

/// Calls with each child of this name.
template <typename Call>
void ForEach(CamtNode node, std::string_view name, const Call& call)
{
    for (CamtNode child = node.First(); child; child = child.Next())
        if (child.IsNamed(name))
            call(child);
}

}  // namespace clb
