// Writes camt messages for tests.
#pragma once
#include <string>

namespace clb::camt {

inline std::string Tag(const std::string& name, const std::string& content)
{
    return "<" + name + ">" + content + "</" + name + ">\n";
}
inline std::string Amount(const std::string& amount, const std::string& currency = "EUR")
{
    return "<Amt Ccy=\"" + currency + "\">" + amount + "</Amt>\n";
}
/// An entry of one transaction. A sign before the amount says whether it is a debit.
struct Entry {
    std::string amount = "12.50";
    std::string booked = "<Dt>2026-03-05</Dt>";
    std::string state = "BOOK";
    std::string currency = "EUR";
    std::string more{};  ///< further elements of the entry

    [[nodiscard]] std::string Text() const
    {
        const bool debit = amount.starts_with("-");
        return Tag("Ntry", Amount(debit ? amount.substr(1) : amount, currency) +
                               Tag("CdtDbtInd", debit ? "DBIT" : "CRDT") + Tag("Sts", state) +
                               (booked.empty() ? "" : Tag("BookgDt", booked)) + more);
    }
};
inline std::string Details(const std::string& content)
{
    return Tag("NtryDtls", Tag("TxDtls", content));
}
inline std::string Balance(const std::string& code, const std::string& amount,
                           const std::string& currency = "EUR")
{
    const bool debit = amount.starts_with("-");
    return Tag("Bal", Tag("Tp", Tag("CdOrPrtry", Tag("Cd", code))) +
                          Amount(debit ? amount.substr(1) : amount, currency) +
                          Tag("CdtDbtInd", debit ? "DBIT" : "CRDT") +
                          Tag("Dt", Tag("Dt", "2026-03-31")));
}
inline std::string Account(const std::string& iban = "NL91ABNA0417164300",
                           const std::string& currency = "EUR")
{
    return Tag("Acct", Tag("Id", Tag("IBAN", iban)) +
                           (currency.empty() ? "" : Tag("Ccy", currency)) +
                           Tag("Ownr", Tag("Nm", "Jane Owner")));
}
inline std::string Document(const std::string& message, const std::string& content,
                            const std::string& name = "camt.053.001.08")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Document "
           "xmlns=\"urn:iso:std:iso:20022:tech:xsd:" +
           name + "\">\n" + Tag(message, Tag("GrpHdr", Tag("MsgId", "1")) + content) +
           "</Document>\n";
}
inline std::string Statement(const std::string& entries, const std::string& account = Account())
{
    return Tag("Stmt", Tag("Id", "1") + account + entries);
}
inline std::string Statements(const std::string& content)
{
    return Document("BkToCstmrStmt", content);
}

}  // namespace clb::camt
