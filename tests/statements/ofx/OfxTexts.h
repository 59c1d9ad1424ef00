// Builds OFX texts for tests.
#pragma once
#include <string>

namespace clb {

inline const std::string kOfxHeader =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\nSECURITY:NONE\r\nENCODING:USASCII\r\n"
    "CHARSET:1252\r\nCOMPRESSION:NONE\r\nOLDFILEUID:NONE\r\nNEWFILEUID:NONE\r\n\r\n";

inline const std::string kOfxAccount =
    "<BANKACCTFROM><BANKID>10020030<ACCTID>4711<ACCTTYPE>CHECKING</BANKACCTFROM>";

/// A row. More is added before its end tag.
inline std::string OfxRow(const std::string& day, const std::string& amount,
                          const std::string& more = "<NAME>Shop")
{
    return "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>" + day + "<TRNAMT>" + amount + more + "</STMTTRN>";
}

/// The response with a statement of these rows, in a currency, with what follows the list.
inline std::string OfxStatement(const std::string& rows, const std::string& currency = "EUR",
                                const std::string& after = "",
                                const std::string& account = kOfxAccount)
{
    return "<STMTTRNRS><TRNUID>0<STATUS><CODE>0<SEVERITY>INFO</STATUS><STMTRS><CURDEF>" + currency +
           account + "<BANKTRANLIST><DTSTART>20240101<DTEND>20240131" + rows + "</BANKTRANLIST>" +
           after + "</STMTRS></STMTTRNRS>";
}

/// A file of these responses.
inline std::string OfxFile(const std::string& responses)
{
    return kOfxHeader + "<OFX><BANKMSGSRSV1>" + responses + "</BANKMSGSRSV1></OFX>";
}

/// A file of one statement.
inline std::string OfxOfRows(const std::string& rows)
{
    return OfxFile(OfxStatement(rows));
}

}  // namespace clb
