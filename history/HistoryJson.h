// The history as JSON, for clb and the automation.
#pragma once
#include <cstdint>
#include <optional>

#include "history/HistoryReader.h"
#include "json/ValueJson.h"

namespace clb {

/// The step's "step", "at", "what", "rows" and "undone".
[[nodiscard]] Json ToJson(const Step& step);
/// An array of such objects.
[[nodiscard]] Json ToJson(const std::vector<Step>& steps);
/// The steps, the newest first, at most so many. Throws EngineError.
[[nodiscard]] std::vector<Step> NewestSteps(HistoryReader& history, std::int64_t most);
/// An array of the changes of a step: "table", "row" (the identity), "was" and "is", each an object
/// of all cells or null. Throws EngineError and HistoryRefusal.
[[nodiscard]] Json ChangesJson(HistoryReader& history, const Step& step);
/// The reply that shows one step: "steps" with the step alone, its "changes" in it and beside it.
/// Throws EngineError and HistoryRefusal.
[[nodiscard]] Json StepReply(HistoryReader& history, const Step& step);

}  // namespace clb
