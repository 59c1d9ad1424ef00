// A main window for tests of the import alone.
#pragma once
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "import/IImportHost.h"

namespace clb {

/// A main window that records what the import does to it.
class FakeImportHost : public IImportHost {
public:
    std::string AskForFile(std::int32_t flags, const std::string& filter) override
    {
        events.push_back("ask " + std::to_string(flags) + " " + filter);
        return file;
    }
    [[nodiscard]] std::string StatusText() const override { return status; }
    void StatusText(const std::string& text) override
    {
        events.push_back("status " + text);
        status = text;
    }
    void Repaint() override { events.push_back("repaint"); }
    void WindowEnabled(bool enabled) override
    {
        events.push_back(enabled ? "enabled" : "disabled");
    }
    void Pointer(std::int32_t code) override
    {
        events.push_back("pointer " + std::to_string(code));
    }
    bool CheckImportAccount(std::string& accountID) override
    {
        events.push_back("account " + accountID);
        if (accountID.empty())
            accountID = fallback;
        return accepts;
    }

    void ImportProgress(std::size_t part, std::size_t whole) override
    {
        progress.push_back({part, whole});
    }

    std::string file;  ///< the user's choice; empty: cancelled
    std::string status = "Ready";
    std::string fallback;  ///< account that the user picks if the file does not name one
    bool accepts = true;   ///< whether the account check agrees
    std::vector<std::string> events;
    std::vector<std::pair<std::size_t, std::size_t>> progress;  ///< part and whole
};

}  // namespace clb
