#include "history/HistoryReader.h"

#include "history/StepApplier.h"

namespace clb {

std::optional<Step> HistoryReader::NextToUndo()
{
    return store_.Exists() ? store_.NextToUndo() : std::nullopt;
}

std::optional<Step> HistoryReader::NextToRedo()
{
    return store_.Exists() ? store_.NextToRedo() : std::nullopt;
}

void HistoryReader::Visit(const std::function<bool(const Step&)>& visit)
{
    if (store_.Exists())
        store_.Visit(visit);
}

std::optional<Step> HistoryReader::Find(std::int64_t number)
{
    return store_.Exists() ? store_.Find(number) : std::nullopt;
}

std::vector<RowStory> HistoryReader::Rows(const Step& step, std::size_t most)
{
    shapes_.Forget();
    if (!store_.Exists())
        return {};
    try {
        return StepStoryteller(*database_, shapes_, store_).Of(step, most);
    } catch (const DamagedStep& damaged) {
        const std::optional<Step> found = store_.Find(damaged.number);
        const std::string sentence = "he history's step " + std::to_string(damaged.number) +
                                     (found ? " ('" + found->what + "')" : "") + " is damaged.";
        if (damaged.number == step.number)
            throw HistoryRefusal("T" + sentence);
        throw HistoryRefusal("Step " + std::to_string(step.number) + " cannot be shown: t" +
                             sentence);
    }
}

std::string HistoryReader::EndedAt()
{
    return store_.Exists() ? store_.EndedAt() : std::string();
}

}  // namespace clb
