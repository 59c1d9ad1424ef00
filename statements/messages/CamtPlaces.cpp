#include "statements/messages/CamtPlaces.h"

#include <limits>

#include "statements/form/StatementReader.h"

namespace clb {
namespace {

/// Where an entry keeps what recognises it, in the order of the spans.
constexpr std::array kPieces = {&CamtEntryPart::amount,        &CamtEntryPart::amountTag,
                                &CamtEntryPart::direction,     &CamtEntryPart::state,
                                &CamtEntryPart::bookingDate,   &CamtEntryPart::serviceReference,
                                &CamtEntryPart::entryReference};

}  // namespace

void CamtPlaces::Begin(CamtKind kind)
{
    marks_.push_back({Mark::Kind::Begin, kind, entries_.size(), 0});
}

void CamtPlaces::Entry(const CamtEntryPart& part)
{
    if (part.text.size() > std::numeric_limits<std::uint32_t>::max())
        throw NotAStatement("An entry of the message is too large to be read.");
    Place& place = entries_.emplace_back();
    place.begin = part.begin;
    place.size = static_cast<std::uint32_t>(part.text.size());
    for (std::size_t i = 0; i < kPieces.size(); ++i) {
        const std::string_view piece = part.*kPieces[i];
        if (piece.data() != nullptr)
            place.pieces[i] = {static_cast<std::uint32_t>(piece.data() - part.text.data()),
                               static_cast<std::uint32_t>(piece.size())};
    }
}

void CamtPlaces::End()
{
    marks_.push_back({Mark::Kind::End, {}, entries_.size(), 0});
}

void CamtPlaces::Broken(std::size_t offset, bool inEntry)
{
    marks_.push_back(
        {inEntry ? Mark::Kind::BrokenEntry : Mark::Kind::Broken, {}, entries_.size(), offset});
}

void CamtPlaces::Read(ICamtParts& parts) const
{
    std::size_t entry = 0;
    for (const Mark& mark : marks_) {
        for (; entry < mark.entry; ++entry)
            parts.Entry(PartOf(entries_[entry]));
        Call(mark, parts);
    }
    for (; entry < entries_.size(); ++entry)
        parts.Entry(PartOf(entries_[entry]));
}

CamtEntryPart CamtPlaces::PartOf(const Place& place) const
{
    CamtEntryPart part;
    part.begin = place.begin;
    part.text = text_.substr(place.begin, place.size);
    for (std::size_t i = 0; i < kPieces.size(); ++i)
        part.*kPieces[i] = part.text.substr(place.pieces[i].begin, place.pieces[i].size);
    return part;
}

void CamtPlaces::Call(const Mark& mark, ICamtParts& parts)
{
    switch (mark.kind) {
        case Mark::Kind::Begin: parts.Begin(mark.message); break;
        case Mark::Kind::End: parts.End(); break;
        case Mark::Kind::Broken: parts.Broken(mark.offset, false); break;
        case Mark::Kind::BrokenEntry: parts.Broken(mark.offset, true); break;
    }
}

}  // namespace clb
