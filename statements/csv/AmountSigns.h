// Which sign an amount has, from its column, its mark and the other amounts of the file.
#pragma once
#include <cstddef>
#include <optional>

#include "base/Money.h"
#include "statements/csv/CellWords.h"
#include "statements/csv/CsvColumns.h"

namespace clb {

/// What the descriptions of a row say about the way its money went.
struct RowWords {
    CellSide side = CellSide::None;
    std::size_t weight = 1;  ///< how surely
    bool payment = false;    ///< it is a payment, maybe to a card
};

/// Counts how the amounts of one source are written, and reads them by that.
class AmountSigns {
public:
    explicit AmountSigns(const AmountSource& source) : source_(source) {}

    void Count(const CsvRecord& record, const RowWords& words);
    /// The amount of a row; positive comes in, as far as the source says. Nothing if the row has no
    /// amount that can be read, or if its sign cannot be known.
    [[nodiscard]] std::optional<Money> Read(const CsvRecord& record, char decimal) const;
    /// Whether the row has any amount, even one that cannot be read.
    [[nodiscard]] bool IsFilled(const CsvRecord& record) const;
    [[nodiscard]] const AmountSource& Source() const { return source_; }

    /// What the file says of the sign without a balance.
    enum class Sign { Normal, Inverted, Open };
    struct Verdict {
        Sign sign = Sign::Normal;
        bool likelyInverted = false;
        const char* why = "";
    };
    [[nodiscard]] Verdict Judge() const;
    /// Number of rows whose descriptions say that the signs are inverted, less those that say that
    /// they are not.
    [[nodiscard]] bool WordsContradict(bool inverted) const;
    /// Whether columns or marks of their own say which way the money went.
    [[nodiscard]] bool HasSides() const
    {
        return source_.amount ? source_.mark.has_value() : !source_.unnamed;
    }
    /// Whether some rows lack the mark that would say which way their money went.
    [[nodiscard]] bool HasUnmarked() const { return unmarked_ > 0 && !SignsAgree(); }

private:
    void CountAmount(const CsvRecord& record, const RowWords& words);
    void CountPair(const CsvRecord& record);
    [[nodiscard]] Verdict JudgeMarked() const;
    [[nodiscard]] Verdict JudgeSigned() const;
    [[nodiscard]] Verdict JudgeUnsigned() const;
    [[nodiscard]] std::optional<Money> ReadSigned(const CsvRecord& record, char decimal) const;
    [[nodiscard]] std::optional<Money> ReadPair(const CsvRecord& record, char decimal) const;
    [[nodiscard]] std::optional<Money> WithFee(Money amount, const CsvRecord& record,
                                               char decimal) const;
    /// Whether marks and signs never differ: marks of money out stand with minus signs only.
    [[nodiscard]] bool SignsAgree() const { return outPositive_ == 0 && negative_ > 0; }
    [[nodiscard]] bool SignsDiffer() const { return inPositive_ == 0 && outNegative_ == 0; }
    /// Whether "CR" is on what comes in, and nothing on what goes out.
    [[nodiscard]] bool PlainIsOut() const
    {
        return credit_ > 0 && debit_ == 0 && negative_ == 0 && credit_ < positive_;
    }

    AmountSource source_;
    std::size_t positive_ = 0;
    std::size_t negative_ = 0;
    std::size_t paymentsOut_ = 0;  ///< negative amounts of payments
    std::size_t plus_ = 0;
    std::size_t credit_ = 0;
    std::size_t debit_ = 0;
    std::size_t inPositive_ = 0;  ///< by the mark, or in the column of what comes in
    std::size_t inNegative_ = 0;
    std::size_t outPositive_ = 0;
    std::size_t outNegative_ = 0;
    std::size_t unmarked_ = 0;
    std::size_t both_ = 0;
    std::size_t agree_ = 0;     ///< descriptions that fit normal signs
    std::size_t disagree_ = 0;  ///< that fit inverted ones
};

}  // namespace clb
