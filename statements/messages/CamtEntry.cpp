#include "statements/messages/CamtEntry.h"

#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "statements/messages/CamtNodes.h"
#include "statements/messages/Mt940Subfields.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

constexpr std::size_t kUnstructured = 140;  // characters that a line of remittance holds

using Nodes = std::vector<CamtNode>;

/// The transactions of an entry. The first version has them in the entry itself.
Nodes DetailsOf(CamtNode entry)
{
    Nodes details;
    const auto add = [&details](CamtNode node) { details.push_back(node); };
    ForEach(entry, "TxDtls", add);
    ForEach(entry, "NtryDtls", [&add](CamtNode node) { ForEach(node, "TxDtls", add); });
    return details;
}

/// The lines of remittance, joined as one text where a line is full.
std::string Unstructured(CamtNode details)
{
    std::string all;
    bool full = false;
    ForEach(Child(details, "RmtInf"), "Ustrd", [&](CamtNode line) {
        const std::string text = TextOf(line);
        if (!all.empty() && !full)
            all += ' ';
        all += text;
        full = Length(text) == kUnstructured;
    });
    return all;
}

void AddStructured(RowText& text, CamtNode details)
{
    ForEach(Child(details, "RmtInf"), "Strd", [&text](CamtNode part) {
        text.Add(TextAt(part, "CdtrRefInf/Ref", "CdtrRefInf/CdtrRef"));
        ForEach(part, "RfrdDocInf",
                [&text](CamtNode document) { text.Add(TextAt(document, "Nb", "RfrdDocNb")); });
        ForEach(part, "AddtlRmtInf", [&text](CamtNode line) { text.Add(TextOf(line)); });
    });
}

/// An amount in the currency of the order, if that is another one.
void AddOriginalAmount(RowText& text, CamtNode details, const std::string& currency)
{
    const CamtNode amounts = Child(details, "AmtDtls");
    for (const char* const path : {"InstdAmt/Amt", "TxAmt/Amt"}) {
        const CamtAmount original = AmountOf(At(amounts, path));
        if (original.amount && !original.currency.empty() && original.currency != currency) {
            text.Add(original.amount->ToText() + ' ' + original.currency);
            return;
        }
    }
}

void AddCharges(RowText& text, CamtNode node)
{
    ForEach(node, "Chrgs", [&text](CamtNode charges) {
        const CamtNode total = Child(charges, "TtlChrgsAndTaxAmt");
        const CamtNode single = Child(charges, "Amt");
        const CamtAmount amount = AmountOf(total    ? total
                                           : single ? single
                                                    : At(charges, "Rcrd/Amt"));
        if (amount.amount && !amount.amount->IsZero())
            text.Add("Charges", amount.amount->ToText() + ' ' + amount.currency);
    });
}

void AddReferences(RowText& text, CamtNode details)
{
    const CamtNode references = Child(details, "Refs");
    text.Add("End-to-end", TextAt(references, "EndToEndId"));
    text.Add("Mandate", TextAt(references, "MndtId"));
    text.Add("Creditor", TextAt(details, "RltdPties/Cdtr/Id/PrvtId/Othr/Id",
                                "RltdPties/Cdtr/Pty/Id/PrvtId/Othr/Id"));
    text.Add("Instruction", TextAt(references, "InstrId"));
    text.Add("Cheque", TextAt(references, "ChqNb"));
}

/// All that a transaction says but the other party's name.
void AddDetails(RowText& text, CamtNode details, const CamtParty& party,
                const std::string& currency)
{
    text.Add(Unstructured(details));
    AddStructured(text, details);
    text.Add(TextAt(details, "AddtlTxInf"));
    const CamtNode back = Child(details, "RtrInf");
    text.Add("Return", TextAt(back, "Rsn/Cd", "Rsn/Prtry"));
    ForEach(back, "AddtlInf", [&text](CamtNode line) { text.Add(TextOf(line)); });
    text.Add("For", party.ultimate);
    AddOriginalAmount(text, details, currency);
    AddCharges(text, details);
    AddReferences(text, details);
    text.Add(party.account);
}

/// The amount of a transaction in an entry. Nothing if it has none in the entry's currency.
std::optional<Money> DetailAmount(CamtNode details, const std::string& currency, bool credit)
{
    CamtNode node = Child(details, "Amt");
    if (!node)
        node = At(details, "AmtDtls/TxAmt/Amt");
    const CamtAmount amount = AmountOf(node);
    if (!amount.amount || (!amount.currency.empty() && amount.currency != currency))
        return {};
    const bool comesIn = IsCredit(TextAt(details, "CdtDbtInd")).value_or(credit);
    return comesIn ? *amount.amount : -*amount.amount;
}

/// The transactions of a batch as pieces; none if they do not sum to the entry.
std::vector<StatementPiece> PiecesOf(const Nodes& details, CamtEntry& entry, const CamtOwner& owner)
{
    std::vector<StatementPiece> pieces;
    std::string amounts;
    Money sum;
    try {
        for (const CamtNode node : details) {
            const auto amount = DetailAmount(node, entry.currency, !entry.amount->IsNegative());
            if (!amount)
                return {};
            sum += *amount;
            amounts += (amounts.empty() ? "" : ", ") + amount->ToText();
            const CamtParty party = OtherParty(node, !amount->IsNegative(), owner);
            RowText text;
            text.Add(party.name);
            AddDetails(text, node, party, entry.currency);
            pieces.push_back({*amount, {}, text.Text()});
        }
    } catch (const RuntimeError&) {
        return {};  // the sum is out of range
    }
    if (sum == *entry.amount)
        return pieces;
    entry.unfitPieces = amounts;
    return {};
}

/// Dutch banks write codes between slashes here as well.
std::string Readable(const std::string& information)
{
    if (!HasCodes(information))
        return information;
    const Mt940Description coded = ReadCodes(information);
    return coded.name + (coded.name.empty() || coded.text.empty() ? "" : "; ") + coded.text;
}

/// Name and text of the row.
void Describe(CamtNode node, const Nodes& details, CamtEntry& entry, const CamtOwner& owner)
{
    StatementRow& row = entry.row;
    const std::string additional = Readable(TextAt(node, "AddtlNtryInf"));
    RowText text;
    const bool credit = entry.amount ? !entry.amount->IsNegative() : true;
    if (details.size() > 1) {
        text.Add(additional);
        row.name = FirstWords(additional);
        if (entry.amount)
            row.pieces = PiecesOf(details, entry, owner);
    }
    if (row.pieces.empty())
        for (const CamtNode detail : details) {
            const CamtParty party = OtherParty(detail, credit, owner);
            if (row.name.empty())
                row.name = party.name;
            text.Add(party.name == row.name ? std::string() : party.name);
            AddDetails(text, detail, party, entry.currency);
            if (row.checkNumber.empty())
                row.checkNumber = TextAt(detail, "Refs/ChqNb");
        }
    text.Add(additional);
    text.Add("Batch", TextAt(node, "NtryDtls/Btch/PmtInfId", "NtryDtls/Btch/MsgId"));
    AddCharges(text, node);
    row.text = text.Text();
    if (row.name.empty())
        row.name =
            FirstWords(additional.empty() ? row.text.substr(0, row.text.find("; ")) : additional);
    if (row.name.empty() && !row.pieces.empty())
        row.name = std::to_string(row.pieces.size()) + " transactions";
    if (row.name.empty())
        row.name = TextAt(node, "BkTxCd/Prtry/Cd");
    if (row.text == row.name)
        row.text.clear();
}

}  // namespace

std::string SummaryOf(const CamtPart& part, const CamtEntry& entry)
{
    const CamtTree tree(part.text);
    const CamtNode node = tree.Root();
    std::string summary;
    for (const std::string& text :
         {TextAt(node, "BookgDt/Dt", "BookgDt/DtTm"), TextAt(node, "CdtDbtInd"),
          TextAt(node, "Amt"), entry.currency, entry.row.name})
        if (!text.empty())
            summary += (summary.empty() ? "" : " ") + text;
    return FirstWords(summary);
}

bool IsBooked(std::string_view state)
{
    return Squeezed(state).empty() || state.find("BOOK") != std::string_view::npos;
}

std::optional<CamtEntry> ReadCamtEntry(const CamtPart& part, const CamtOwner& owner, CamtTree& tree)
{
    tree.Read(part.text);
    if (!tree.IsWhole())
        return {};
    const CamtNode node = tree.Root();
    CamtEntry entry;
    entry.state = IsBooked(TextAt(node, "Sts/Cd") + TextAt(node, "Sts/Prtry") + TextAt(node, "Sts"))
                      ? CamtState::Booked
                      : CamtState::NotBooked;
    const CamtAmount amount = AmountOf(Child(node, "Amt"));
    entry.currency = amount.currency;
    const auto credit = IsCredit(TextAt(node, "CdtDbtInd"));
    if (amount.amount && credit)
        entry.amount = *credit ? *amount.amount : -*amount.amount;
    entry.row.valueDate = DayOf(Child(node, "ValDt"));
    const CamtNode booked = Child(node, "BookgDt");
    entry.date = TextAt(booked, "Dt", "DtTm").empty() ? entry.row.valueDate : DayOf(booked);
    Describe(node, DetailsOf(node), entry, owner);
    entry.row.date = entry.date.value_or(Date());
    entry.row.amount = entry.amount.value_or(Money());
    return entry;
}

}  // namespace clb
