// A small table and its events, for tests of the grid.
#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "controls/GridComponent.h"

namespace clb {

/// Fills the array with the rows of a small shop: Sequence (key), Name (at most 10 characters),
/// Price, Count, Day, Open, Weight.
inline void FillShop(GridArray& array)
{
    array.Fields({{"Sequence", FieldType::Long, 0, false, true},
                  {"Name", FieldType::Text, 10, true, false},
                  {"Price", FieldType::Money, 0, true, false},
                  {"Count", FieldType::Long, 0, true, false},
                  {"Day", FieldType::Date, 0, true, false},
                  {"Open", FieldType::Boolean, 0, true, false},
                  {"Weight", FieldType::Double, 0, true, false}});
    array.Add({11, std::string("Apples"), Money::FromUnits(2), 5});
    array.Add({12, std::string("Bread"), Money::FromUnits(3), 1});
    array.Add({13, std::string("Cheese"), Money::FromUnits(7), 2});
    array.Show();
}

namespace shop {
enum Column : std::int32_t { Key = 1, Name, Price, Count, Day, Open, Weight };
}

/// Records the events that were raised, in order, as texts like "BeforeEdit 1 2 0".
class GridEvents {
public:
    void Note(const std::string& line) { lines_.push_back(line); }
    /// Returns the events since the last call.
    std::vector<std::string> Take()
    {
        std::vector<std::string> taken;
        taken.swap(lines_);
        return taken;
    }

private:
    std::vector<std::string> lines_;
};

/// Returns the number of the runtime error that the action throws, or 0 if it does not throw one.
inline std::int64_t RuntimeErrorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace clb
