// The history of the model: what the books held after each step.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "tests/model/ModelBooks.h"

namespace clb::model {

/// A copy of the tables for each step, and which of them the books hold now.
class ModelHistory {
public:
    explicit ModelHistory(const Tables& start);

    /// If the tables differ from what they were, that is another step with this name, and nothing
    /// can be redone any more.
    void Note(const Tables& tables, const std::string& what);
    /// Goes one step back or forward. Returns what the tables hold then; nullptr if there is no
    /// such step.
    const Tables* Back();
    const Tables* Forward();

    /// Numbers of steps that can be undone and redone.
    [[nodiscard]] std::size_t Done() const { return now_; }
    [[nodiscard]] std::size_t Undone() const { return states_.size() - 1 - now_; }
    /// What the tables held after the newest step, undone or not.
    [[nodiscard]] const Tables& Newest() const { return *states_.back().tables; }
    /// "|Undo ..." and "|Redo ..." if they are possible.
    [[nodiscard]] std::string Captions() const;
    /// What the dialog lists, the newest step first: name, changed rows, "undone".
    [[nodiscard]] std::string List() const;

private:
    struct State {
        std::string what;  ///< the step that led here
        std::size_t rows = 0;
        std::shared_ptr<const Tables> tables;
    };

    std::vector<State> states_;
    std::size_t now_ = 0;
};

}  // namespace clb::model
