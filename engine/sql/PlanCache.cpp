#include "engine/sql/PlanCache.h"

namespace clb {

template <typename T>
T* PlanCache::Recent<T>::Find(std::string_view key)
{
    const auto found = index_.find(key);
    if (found == index_.end())
        return nullptr;
    nodes_.splice(nodes_.begin(), nodes_, found->second);
    return &found->second->value;
}

template <typename T>
void PlanCache::Recent<T>::Add(std::string key, T value)
{
    if (nodes_.size() == limit_) {
        index_.erase(nodes_.back().key);
        nodes_.pop_back();
    }
    nodes_.push_front({std::move(key), std::move(value)});
    try {
        index_.insert_or_assign(nodes_.front().key, nodes_.begin());
    } catch (...) {
        nodes_.pop_front();
        throw;
    }
}

template <typename T>
void PlanCache::Recent<T>::Clear()
{
    index_.clear();
    nodes_.clear();
}

const PlanCache::Entry* PlanCache::FindText(std::string_view sql)
{
    return texts_.Find(sql);
}

void PlanCache::AddText(std::string_view sql, Entry entry)
{
    texts_.Add(std::string(sql), std::move(entry));
}

std::shared_ptr<Plan> PlanCache::FindShape(const std::string& shape)
{
    const auto* found = shapes_.Find(shape);
    return found ? *found : nullptr;
}

void PlanCache::AddShape(std::string shape, std::shared_ptr<Plan> plan)
{
    shapes_.Add(std::move(shape), std::move(plan));
}

void PlanCache::Clear()
{
    texts_.Clear();
    shapes_.Clear();
}

}  // namespace clb
