#pragma once
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/sql/Plan.h"

namespace clb {

/// Compiled queries, found by their exact text and else by their shape, so that texts that
/// differ in literals only are compiled once. Both stores are bounded; the longest unused go first.
class PlanCache {
public:
    struct Entry {
        std::shared_ptr<Plan> plan;
        std::shared_ptr<const BoundValues> values;
    };

    /// Null where the text is not known.
    const Entry* FindText(std::string_view sql);
    void AddText(std::string_view sql, Entry entry);
    /// Null where the shape is not known.
    std::shared_ptr<Plan> FindShape(const std::string& shape);
    void AddShape(std::string shape, std::shared_ptr<Plan> plan);
    void Clear();

private:
    /// Least recently used last.
    template <typename T>
    class Recent {
    public:
        explicit Recent(std::size_t limit) : limit_(limit) {}
        T* Find(std::string_view key);
        void Add(std::string key, T value);
        void Clear();

    private:
        struct Node {
            std::string key;
            T value;
        };
        std::size_t limit_;
        std::list<Node> nodes_;
        std::unordered_map<std::string_view, typename std::list<Node>::iterator> index_;
    };

    Recent<Entry> texts_{256};
    Recent<std::shared_ptr<Plan>> shapes_{256};
};

}  // namespace clb
