// A set of rows, one bit for each.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace clb {

/// A set of the rows 0 to Size() - 1. Sets that are combined have the same size.
class RowBits {
public:
    explicit RowBits(std::size_t size = 0) : words_((size + kBits - 1) / kBits), size_(size) {}

    [[nodiscard]] std::size_t Size() const { return size_; }
    /// Makes room for rows up to size; the new ones are not in the set.
    void Grow(std::size_t size)
    {
        if (size > words_.size() * kBits)
            words_.resize((size + kBits - 1) / kBits);
        size_ = size;
    }
    void Add(std::size_t row) { words_[row / kBits] |= BitOf(row); }
    void Remove(std::size_t row) { words_[row / kBits] &= ~BitOf(row); }
    [[nodiscard]] bool Has(std::size_t row) const
    {
        return (words_[row / kBits] & BitOf(row)) != 0;
    }
    [[nodiscard]] std::size_t Count() const
    {
        std::size_t count = 0;
        for (const std::uint64_t word : words_)
            count += static_cast<std::size_t>(std::popcount(word));
        return count;
    }

    RowBits& operator|=(const RowBits& other)
    {
        for (std::size_t i = 0; i < words_.size(); ++i)
            words_[i] |= other.words_[i];
        return *this;
    }
    RowBits& operator&=(const RowBits& other)
    {
        for (std::size_t i = 0; i < words_.size(); ++i)
            words_[i] &= other.words_[i];
        return *this;
    }
    RowBits& operator-=(const RowBits& other)
    {
        for (std::size_t i = 0; i < words_.size(); ++i)
            words_[i] &= ~other.words_[i];
        return *this;
    }

    /// Adds each row for which test(row) is true.
    template <typename Test>
    void AddWhere(Test&& test)
    {
        for (std::size_t word = 0, row = 0; word < words_.size(); ++word) {
            std::uint64_t bits = 0;
            const std::size_t count = size_ - row < kBits ? size_ - row : kBits;
            for (std::size_t bit = 0; bit < count; ++bit, ++row)
                bits |= std::uint64_t{test(row) ? 1U : 0U} << bit;
            words_[word] |= bits;
        }
    }
    /// Calls take(row) for each row of the set, in their order.
    template <typename Take>
    void ForEach(Take&& take) const
    {
        for (std::size_t word = 0; word < words_.size(); ++word)
            for (std::uint64_t bits = words_[word]; bits != 0; bits &= bits - 1)
                take(word * kBits + static_cast<std::size_t>(std::countr_zero(bits)));
    }

private:
    static constexpr std::size_t kBits = 64;
    static std::uint64_t BitOf(std::size_t row) { return std::uint64_t{1} << (row % kBits); }

    std::vector<std::uint64_t> words_;
    std::size_t size_;
};

}  // namespace clb
