// Goes through an OFX file by its structure.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "statements/ofx/OfxScanner.h"
#include "statements/ofx/OfxTags.h"

namespace clb {

/// A transaction of a statement. The texts are raw values.
struct OfxEntry {
    std::size_t offset = 0;
    std::string_view type{};
    std::string_view posted{};
    std::string_view user{};
    std::string_view available{};
    std::string_view amount{};
    std::string_view identifier{};
    std::string_view check{};
    std::string_view reference{};
    std::string_view name{};
    std::string_view party{};  ///< name in its PAYEE
    std::string_view extendedName{};
    std::string_view memo{};
    std::string_view currency{};   ///< of the amount, if it is not the statement's
    std::string_view corrected{};  ///< identifier of the transaction that it corrects
    std::string_view correction{};
    bool pending = false;
    unsigned amounts = 0;  ///< number of amounts that differ; one is usual
    unsigned dates = 0;    ///< number of posting dates that differ
    bool closed = false;   ///< by its end tag
    bool last = false;     ///< the file ends in it
};

/// The account and the balance of a statement, as far as they have been read. Raw values.
struct OfxFacts {
    OfxTag kind = OfxTag::Unknown;  ///< Unknown: rows outside a statement
    std::string_view account{};
    std::string_view bank{};
    std::string_view branch{};
    std::string_view type{};
    std::string_view currency{};
    std::string_view balance{};
    std::string_view balanceDate{};
};

/// An error that the bank reports.
struct OfxFailure {
    std::size_t offset = 0;
    std::string_view code{};
    std::string_view message{};
};

/// Takes what is found, in the order of the file.
class IOfxVisitor {
public:
    virtual ~IOfxVisitor() = default;
    virtual void BeginStatement() = 0;
    virtual void EndStatement(const OfxFacts& facts) = 0;
    /// Comes between BeginStatement and EndStatement.
    virtual void Entry(const OfxEntry& entry) = 0;
    /// A trade, position or order, between BeginStatement and EndStatement. The name is its tag's.
    virtual void Security(std::string_view name, std::size_t offset) = 0;
    virtual void Failure(const OfxFailure& failure) = 0;
    /// Something that is no statement, such as the answer to the sign-on.
    virtual void Other(OfxTag content) = 0;
    /// A number that is no transaction's amount.
    virtual void OtherAmount(std::string_view raw) = 0;
};

/// Goes through a text once. End tags may be missing: a row or statement also ends where the next
/// one begins and where what is around it ends.
class OfxWalk {
public:
    OfxWalk(std::string_view text, IOfxVisitor& visitor) : scanner_(text), visitor_(visitor) {}
    void Run();
    /// After Run: whether the file ends inside of something that it began. Files that consist of an
    /// account's number and rows, without a statement around them, need no end.
    [[nodiscard]] bool BreaksOff() const { return breaksOff_; }

private:
    void Open(const OfxToken& token);
    void OpenAggregate(const OfxToken& token);
    void Value(const OfxToken& token);
    void RowValue(OfxTag tag, std::string_view value);
    void PlainRowValue(OfxTag tag, std::string_view value);
    void StatementValue(OfxTag tag, std::string_view value);
    void Close(OfxTag tag, bool byTag);
    void CloseRow();
    void Pop(bool byTag);
    void Ended(OfxTag tag, bool byTag);
    void BeginStatement(OfxTag kind);
    void LooseAccount(std::string_view number);
    void EndStatement();
    void BeginRow(OfxTag tag, std::size_t offset);
    void EndOfStatus();
    [[nodiscard]] bool Inside(OfxTag tag) const { return open_[static_cast<std::size_t>(tag)] > 0; }
    [[nodiscard]] bool InsideRow() const
    {
        return Inside(OfxTag::Row) || Inside(OfxTag::PendingRow);
    }
    [[nodiscard]] OfxTag Innermost() const
    {
        return path_.empty() ? OfxTag::Unknown : path_.back();
    }

    OfxScanner scanner_;
    IOfxVisitor& visitor_;
    std::vector<OfxTag> path_;
    std::array<std::size_t, static_cast<std::size_t>(OfxTag::Count)> open_{};
    OfxEntry entry_;
    OfxFacts facts_;
    OfxFailure status_;
    std::string_view severity_;
    std::string_view periodEnd_;
    bool inStatement_ = false;
    bool structured_ = false;  ///< a statement has begun with its tag
    bool looseRows_ = false;   ///< a row was in no statement
    bool atEnd_ = false;
    bool breaksOff_ = false;
};

}  // namespace clb
