// An entry of a camt message as a row.
#pragma once
#include <optional>
#include <string>

#include "statements/form/Statement.h"
#include "statements/messages/CamtOutline.h"
#include "statements/messages/CamtParty.h"

namespace clb {

enum class CamtState : std::uint8_t { Booked, NotBooked };

/// What an entry says. The row's identifier and line are left to the caller.
struct CamtEntry {
    CamtState state = CamtState::Booked;
    std::string currency{};
    std::optional<Date> date{};
    std::optional<Money> amount{};  ///< with its sign
    StatementRow row{};
    std::string unfitPieces{};  ///< the amounts of its transactions if they do not sum to it
};

/// Reads an entry; nothing if its text is not XML after all.
/// tree: is given the entry; its memory is used again.
[[nodiscard]] std::optional<CamtEntry> ReadCamtEntry(const CamtPart& part, const CamtOwner& owner,
                                                     CamtTree& tree);

/// What an entry that was read says, for a list of what was left out.
[[nodiscard]] std::string SummaryOf(const CamtPart& part, const CamtEntry& entry);

/// Whether the text between the tags of an entry's state says that it is booked. An entry without
/// a state is.
[[nodiscard]] bool IsBooked(std::string_view state);

}  // namespace clb
