// Goes through a QIF file by its records.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "statements/qif/QifLines.h"

namespace clb {

/// A part of a split record. The texts are those of the file.
struct QifPiece {
    std::string category{};
    std::string memo{};
    std::string amount{};
    std::string percent{};  ///< of the record's amount
};

/// A transaction as it is written.
struct QifRecord {
    std::size_t line = 0;  ///< where it begins, from 1
    std::string date{};
    std::string amount{};       ///< T
    std::string otherAmount{};  ///< U, which repeats the amount
    std::string number{};       ///< of a cheque; of an investment, its action
    std::string payee{};
    std::string memo{};
    std::string address{};
    std::string category{};
    std::vector<QifPiece> pieces{};
    std::uint32_t letters = 0;    ///< of its lines: bit 0 for A, ...
    unsigned dates = 0;           ///< number of dates that differ; one is usual
    unsigned amounts = 0;         ///< number of T that differ
    bool ended = false;           ///< by '^'
    bool last = false;            ///< the file ends in it
    bool lastLineIsWhole = true;  ///< the last line of the file has a line end

    [[nodiscard]] bool HasAmount() const { return !amount.empty() || !otherAmount.empty(); }
};

/// A list of transactions of one account.
struct QifList {
    std::string account{};  ///< its name; empty if the file does not say it
    std::string type{};     ///< one of the program's account types
    bool investment = false;
};

/// Takes what is found, in the order of the file.
class IQifVisitor {
public:
    virtual ~IQifVisitor() = default;
    virtual void BeginList(const QifList& list) = 0;
    /// A transaction, or an investment's if the list is one. Comes after BeginList.
    virtual void Record(const QifRecord& record) = 0;
};

/// Goes through a text once. Lists of accounts name the account of the transactions after them;
/// those of categories, securities, prices and the like are skipped.
class QifWalk {
public:
    QifWalk(std::string_view text, IQifVisitor& visitor) : lines_(text), visitor_(visitor) {}
    void Run();

private:
    enum class Section : std::uint8_t { Start, Transactions, Accounts, Skipped };

    void Header(std::string_view line);
    void BeginType(std::string_view name);
    void Line(std::string_view line);
    void Field(char letter, std::string_view value);
    void PieceField(char letter, std::string_view value);
    void AccountField(char letter, std::string_view value);
    void EndRecord(bool byMark);
    [[nodiscard]] bool BeginsNext(char letter) const;

    QifLines lines_;
    IQifVisitor& visitor_;
    Section section_ = Section::Start;
    QifRecord record_;
    char firstLetter_ = 0;  ///< of the record; 0: it has no line yet
    QifList account_;       ///< the account named last
    std::size_t accountsNamed_ = 0;
    bool accountEnded_ = true;
};

}  // namespace clb
