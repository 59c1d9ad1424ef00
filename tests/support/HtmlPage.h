// A strict reader of HTML, for tests of the manual and of printed pages.
#pragma once
#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// Parses a page of strict HTML: lower-case tags, quoted attributes, elements closed in order, "<"
/// and "&" in texts only as references. Faults() lists the violations.
class HtmlPage {
public:
    struct Element {
        std::string tag;
        std::map<std::string, std::string> attributes;

        [[nodiscard]] std::string Get(const std::string& attribute) const
        {
            const auto found = attributes.find(attribute);
            return found == attributes.end() ? std::string() : found->second;
        }
    };

    explicit HtmlPage(std::string_view text) : rest_(text)
    {
        if (!Take("<!DOCTYPE html>\n"))
            Fault("does not begin with its document type");
        while (!rest_.empty())
            if (rest_.front() == '<')
                ReadTag();
            else
                ReadText();
        for (const std::string& tag : open_)
            Fault("<" + tag + "> is never closed");
    }

    [[nodiscard]] const std::vector<std::string>& Faults() const { return faults_; }
    [[nodiscard]] const std::vector<Element>& Elements() const { return elements_; }
    [[nodiscard]] bool HasAnchor(const std::string& id) const { return ids_.contains(id); }

private:
    static constexpr std::string_view kNameCharacters = "abcdefghijklmnopqrstuvwxyz0123456789-";

    static bool IsVoid(const std::string& tag)
    {
        constexpr std::array<std::string_view, 5> kVoids{"meta", "link", "img", "br", "hr"};
        return std::find(kVoids.begin(), kVoids.end(), tag) != kVoids.end();
    }

    void Fault(const std::string& what)
    {
        faults_.push_back(what + " before: " + std::string(rest_.substr(0, 60)));
    }

    bool Take(std::string_view text)
    {
        if (!rest_.starts_with(text))
            return false;
        rest_.remove_prefix(text.size());
        return true;
    }

    std::string TakeName()
    {
        const std::size_t end = std::min(rest_.find_first_not_of(kNameCharacters), rest_.size());
        std::string name(rest_.substr(0, end));
        rest_.remove_prefix(end);
        return name;
    }

    void ReadText()
    {
        const std::size_t end = std::min(rest_.find('<'), rest_.size());
        CheckReferences(rest_.substr(0, end));
        rest_.remove_prefix(end);
    }

    void CheckReferences(std::string_view text)
    {
        for (std::size_t at = text.find('&'); at != std::string_view::npos;
             at = text.find('&', at + 1)) {
            const std::string_view name = text.substr(at + 1, text.find(';', at) - at - 1);
            if (name != "amp" && name != "lt" && name != "gt" && name != "quot" && name != "nbsp")
                Fault("a bare \"&\"");
        }
        if (text.find('>') != std::string_view::npos)
            Fault("a bare \">\"");
    }

    void ReadTag()
    {
        if (Take("</"))
            return ReadEnd();
        Take("<");
        Element element{TakeName(), {}};
        if (element.tag.empty())
            Fault("a bare \"<\"");
        while (Take(" ") || Take("\n"))
            ReadAttribute(element);
        if (!Take(">")) {
            Fault("<" + element.tag + " is not a tag");
            rest_.remove_prefix(std::min(rest_.find('>'), rest_.size()));
            Take(">");
        }
        if (!IsVoid(element.tag))
            open_.push_back(element.tag);
        if (const std::string id = element.Get("id"); !id.empty() && !ids_.insert(id).second)
            Fault("a second id " + id);
        elements_.push_back(std::move(element));
    }

    void ReadEnd()
    {
        const std::string tag = TakeName();
        if (!Take(">") || open_.empty() || open_.back() != tag)
            Fault("</" + tag + "> closes nothing that is open");
        else
            open_.pop_back();
    }

    void ReadAttribute(Element& element)
    {
        const std::string name = TakeName();
        const bool quoted = Take("=\"");
        const std::size_t end = quoted ? rest_.find('"') : std::string_view::npos;
        if (name.empty() || end == std::string_view::npos)
            return Fault("an attribute of <" + element.tag + "> is not NAME=\"VALUE\"");
        CheckReferences(rest_.substr(0, end));
        if (!element.attributes.emplace(name, rest_.substr(0, end)).second)
            Fault("a second attribute " + name);
        rest_.remove_prefix(end + 1);
    }

    std::string_view rest_;
    std::vector<std::string> open_;
    std::vector<std::string> faults_;
    std::vector<Element> elements_;
    std::set<std::string> ids_;
};

}  // namespace clb
