#include "statements/messages/CamtOutline.h"

#include <optional>

namespace clb {
namespace {

constexpr std::size_t kDeepest = 200;  // no message nests deeper, envelopes included

std::optional<CamtKind> KindOf(std::string_view name)
{
    if (name == "Stmt")
        return CamtKind::Statement;
    if (name == "Rpt")
        return CamtKind::Report;
    if (name == "Ntfctn")
        return CamtKind::Notification;
    return {};
}

/// Whether the element holds the statements of a message. The first version's ends in "V01".
bool IsMessage(std::string_view name)
{
    return name.starts_with("BkToCstmrStmt") || name.starts_with("BkToCstmrAcctRpt") ||
           name.starts_with("BkToCstmrDbtCdtNtfctn");
}

class Outline {
public:
    Outline(std::string_view text, ICamtParts& parts) : text_(text), scanner_(text), parts_(parts)
    {
    }

    void Read()
    {
        XmlTag tag;
        scanner_.OpenSections(true);
        while (scanner_.Next(tag)) {
            if (tag.kind != XmlTag::Kind::Close)
                Open(tag);
            if (tag.kind != XmlTag::Kind::Open && !Close(tag)) {
                Break(tag.begin);
                return;
            }
            if (open_.size() > kDeepest) {
                Break(tag.begin);
                return;
            }
        }
        if (scanner_.BrokeOff() || !open_.empty())
            Break(text_.size());
    }

private:
    struct Element {
        std::string_view name;
        std::size_t begin = 0;
        std::size_t inside = 0;
    };

    void Open(const XmlTag& tag)
    {
        open_.push_back({tag.name, tag.begin, tag.end});
        if (message_ == 0 && IsMessage(tag.name)) {
            message_ = open_.size();
            scanner_.OpenSections(false);
        } else if (message_ != 0 && open_.size() == message_ + 1) {
            if (const auto kind = KindOf(tag.name)) {
                inStatement_ = true;
                parts_.Begin(*kind);
            }
        } else if (inStatement_ && open_.size() == message_ + 2) {
            entry_ = {};
        }
    }

    bool Close(const XmlTag& tag)
    {
        if (open_.empty() || open_.back().name != tag.name)
            return false;
        const Element element = open_.back();
        const std::size_t depth = open_.size();
        open_.pop_back();
        if (depth == message_) {
            message_ = 0;
            scanner_.OpenSections(true);
        } else if (inStatement_) {
            Leave(element, tag, depth - message_);
        }
        return true;
    }

    void Leave(const Element& element, const XmlTag& tag, std::size_t depth)
    {
        if (depth == 1) {
            inStatement_ = false;
            parts_.End();
        } else if (depth == 2) {
            const CamtPart part{element.begin,
                                text_.substr(element.begin, tag.end - element.begin)};
            if (element.name == "Acct")
                parts_.Account(part);
            else if (element.name == "Bal")
                parts_.Balance(part);
            else if (element.name == "Ntry")
                Entry(part);
        } else if (depth == 3 && open_.back().name == "Ntry") {
            Note(element, tag);
        }
    }

    void Entry(const CamtPart& part)
    {
        entry_.begin = part.begin;
        entry_.text = part.text;
        parts_.Entry(entry_);
    }

    /// Keeps a child of an entry.
    void Note(const Element& element, const XmlTag& tag)
    {
        const bool empty = tag.kind == XmlTag::Kind::Empty;
        const std::string_view inside =
            empty ? std::string_view() : text_.substr(element.inside, tag.begin - element.inside);
        if (element.name == "Amt") {
            entry_.amount = text_.substr(element.begin, tag.end - element.begin);
            entry_.amountTag = text_.substr(element.begin, element.inside - element.begin);
        } else if (element.name == "CdtDbtInd")
            entry_.direction = inside;
        else if (element.name == "Sts")
            entry_.state = inside;
        else if (element.name == "BookgDt")
            entry_.bookingDate = inside;
        else if (element.name == "AcctSvcrRef")
            entry_.serviceReference = inside;
        else if (element.name == "NtryRef")
            entry_.entryReference = inside;
    }

    void Break(std::size_t end)
    {
        for (std::size_t at = 0; at < open_.size(); ++at)
            if (inStatement_ && at == message_ + 1 && open_[at].name == "Ntry") {
                parts_.Broken(open_[at].begin, true);
                return;
            }
        parts_.Broken(end, false);
    }

    std::string_view text_;
    XmlScanner scanner_;
    ICamtParts& parts_;
    std::vector<Element> open_;
    std::size_t message_ = 0;  ///< depth of the open message, from 1; 0 if there is none
    bool inStatement_ = false;
    CamtEntryPart entry_;
};

}  // namespace

void ReadCamtParts(std::string_view text, ICamtParts& parts)
{
    Outline(text, parts).Read();
}

std::string CamtMessageElement(std::string_view text)
{
    constexpr std::size_t kLooked = 65536;
    XmlScanner scanner(text.substr(0, kLooked));
    scanner.OpenSections(true);
    XmlTag tag;
    std::string found;
    for (bool inDocument = false; scanner.Next(tag);) {
        if (tag.kind == XmlTag::Kind::Close)
            continue;
        if (IsMessage(tag.name))
            return std::string(tag.name);
        if (inDocument && found.empty())
            found = tag.name;
        inDocument = tag.name == "Document";
    }
    return found;
}

}  // namespace clb
