// The navigation tree: net worth, budget, and the accounts below their types.
#pragma once
#include <string>
#include <vector>

#include "controls/Tree.h"

namespace clb {

class clsDatabase;

/// Fills the tree control from the stored accounts. The tree is borrowed.
class AccountTree {
public:
    explicit AccountTree(Tree& tree) : tree_(tree) {}

    /// Fills the tree; its root is then selected. Throws EngineError if the accounts cannot be
    /// read; the tree then stays as it was.
    void Build(clsDatabase& data);
    /// False if the last Build was interrupted half-way, for lack of memory.
    [[nodiscard]] bool IsWhole() const { return whole_; }
    /// Whether the tree lists the accounts as they are stored now. Throws EngineError.
    bool IsCurrent(clsDatabase& data) const;
    /// Number of the first node with the tag; 0 if there is none.
    [[nodiscard]] std::int32_t Find(const std::string& tag) const;
    /// Piece of the selected node's tag: 0 the view identifier, 1 the account. Throws RuntimeError
    /// (SubscriptOutOfRange) for a piece that the tag does not have.
    [[nodiscard]] std::string SelectedTagPiece(std::int32_t index) const;

private:
    /// An account's line.
    struct Line {
        std::string type;
        std::string text;
        std::string tag;
        bool operator==(const Line&) const = default;
    };
    static std::vector<Line> Stored(clsDatabase& data);
    std::int32_t Add(std::int32_t parent, const std::string& key, const std::string& text,
                     const std::string& tag);

    Tree& tree_;
    bool whole_ = false;
};

}  // namespace clb
