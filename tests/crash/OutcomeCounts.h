// Counts and prints the outcomes of many crash runs.
#pragma once
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace clb {

/// The number of runs that the environment variable asks for, or else the number of the short
/// version.
inline int Runs(const char* variable, int few)
{
    const char* const text = std::getenv(variable);
    const int wanted = text ? std::atoi(text) : 0;
    return wanted > 0 ? wanted : few;
}

/// Counts the outcomes for each kind of run and prints a line for each kind at the end.
class OutcomeCounts {
public:
    explicit OutcomeCounts(std::string title) : title_(std::move(title)) {}
    ~OutcomeCounts()
    {
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - from_;
        for (const auto& [kind, outcomes] : kinds_) {
            int runs = 0;
            std::string text;
            for (const auto& [outcome, count] : outcomes) {
                runs += outcome.starts_with('+') ? 0 : count;
                text += ", " + outcome + " " + std::to_string(count);
            }
            std::printf("%s, %s: %d runs%s\n", title_.c_str(), kind.c_str(), runs, text.c_str());
        }
        std::printf("%s: %.1f s\n", title_.c_str(), took.count());
    }
    OutcomeCounts(const OutcomeCounts&) = delete;
    OutcomeCounts& operator=(const OutcomeCounts&) = delete;

    /// An outcome that begins with "+" is counted in addition to the others.
    void Count(const std::string& kind, const std::string& outcome) { ++kinds_[kind][outcome]; }
    [[nodiscard]] int Of(const std::string& kind, const std::string& outcome) const
    {
        const auto found = kinds_.find(kind);
        if (found == kinds_.end() || !found->second.contains(outcome))
            return 0;
        return found->second.at(outcome);
    }

private:
    std::string title_;
    std::map<std::string, std::map<std::string, int>> kinds_;
    std::chrono::steady_clock::time_point from_ = std::chrono::steady_clock::now();
};

}  // namespace clb
