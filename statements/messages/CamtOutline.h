// The parts of a camt message and where they are in its text.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "statements/messages/XmlScanner.h"

namespace clb {

/// Which message a statement, report or notification belongs to.
enum class CamtKind : std::uint8_t {
    Report = 52,        ///< camt.052: within a day
    Statement = 53,     ///< camt.053
    Notification = 54,  ///< camt.054: of single bookings
};

/// A part of the text with its tags.
struct CamtPart {
    std::size_t begin = 0;
    std::string_view text;
};

/// An entry, with those of its direct children that recognise it, as the file has them.
struct CamtEntryPart : CamtPart {
    std::string_view amount{};     ///< with its tags
    std::string_view amountTag{};  ///< its opening tag
    std::string_view direction{};
    std::string_view state{};  ///< with the tags in it
    std::string_view bookingDate{};
    std::string_view serviceReference{};  ///< the bank's own
    std::string_view entryReference{};
};

/// Takes the parts of the messages of a file in their order.
class ICamtParts {
public:
    virtual ~ICamtParts() = default;
    virtual void Begin(CamtKind kind) = 0;
    virtual void Account(const CamtPart& part) = 0;
    virtual void Balance(const CamtPart& part) = 0;
    virtual void Entry(const CamtEntryPart& part) = 0;
    virtual void End() = 0;
    /// The text breaks off or its tags do not match from here on; in an entry if inEntry is true.
    virtual void Broken(std::size_t offset, bool inEntry) = 0;
};

/// Goes through the text and its messages, whatever envelope is around them.
void ReadCamtParts(std::string_view text, ICamtParts& parts);

/// The first element of a message below its document, such as "BkToCstmrStmt"; empty if the text
/// has none near its beginning.
[[nodiscard]] std::string CamtMessageElement(std::string_view text);

}  // namespace clb
