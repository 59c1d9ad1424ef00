// The folders of the program form a ladder. A folder includes only folders above it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = CLB_SOURCE;

/// What each folder may include besides itself.
const std::map<std::string, std::set<std::string>> kLadder = {
    {"base", {}},
    {"files", {"base"}},
    {"typed", {"base"}},
    {"statements", {"base", "files"}},
    {"ports", {"base", "typed"}},
    {"engine", {"base", "files"}},
    {"json", {"base", "engine"}},
    {"controls", {"base", "typed", "ports", "engine"}},
    {"user", {"base", "controls"}},
    {"data", {"base", "files", "engine"}},
    {"history", {"base", "engine", "json", "data"}},
    {"search", {"base", "statements", "engine"}},
    {"grid", {"base", "files", "typed", "ports", "engine", "controls", "data"}},
    {"views", {"base", "typed", "ports", "engine", "controls", "data", "grid"}},
    {"import", {"base", "files", "typed", "ports", "engine", "controls", "data", "grid", "views"}},
    {"intake",
     {"base", "files", "typed", "statements", "ports", "engine", "json", "controls", "data", "grid",
      "views", "import"}},
    {"export", {"base", "files", "typed", "ports", "engine", "controls", "data", "grid", "views"}},
    {"quotes", {"base", "typed", "ports", "engine", "controls", "data", "grid", "views"}},
    {"app",
     {"base", "files", "typed", "ports", "engine", "controls", "data", "history", "search", "grid",
      "views", "import", "intake", "statements", "export", "quotes"}},
    {"check", {"base", "engine", "data", "history", "views"}},
    {"platform", {"base", "files", "typed", "ports"}},
    {"automation", {"base",   "files",      "typed",   "ports",  "engine", "json",    "controls",
                    "user",   "data",       "history", "search", "grid",   "views",   "import",
                    "intake", "statements", "export",  "quotes", "app",    "platform"}},
    {"cli",
     {"base",   "files",   "typed",  "ports", "engine",   "json",      "controls", "user",
      "data",   "history", "search", "grid",  "views",    "import",    "intake",   "statements",
      "export", "quotes",  "app",    "check", "platform", "automation"}},
    {"desktop",
     {"base", "files", "typed", "ports", "engine", "controls", "data", "grid", "views", "import",
      "intake", "statements", "export", "quotes", "app", "platform", "automation"}},
};

/// The wings of a folder. A wing includes only itself and those named before it.
const std::map<std::string, std::vector<std::string>> kWings = {
    {"statements", {"form", "source", "ofx", "qif", "csv", "messages", "kinds"}},
    {"engine", {"storage", "sql", "rows"}},
    {"desktop", {"look", "input", "grid", "forms", "help", "ports", "window", "start"}},
};

bool IsSource(const fs::path& path)
{
    return path.extension() == ".h" || path.extension() == ".cpp";
}

/// Returns the names in all include lines of a file.
std::vector<std::string> IncludesOf(const fs::path& path)
{
    static const std::regex include(R"(^\s*#\s*include\s*["<]([^">]+)[">])");
    std::vector<std::string> names;
    std::ifstream in(path);
    std::smatch match;
    for (std::string line; std::getline(in, line);)
        if (std::regex_search(line, match, include))
            names.push_back(match[1]);
    return names;
}

std::vector<fs::path> SourcesOf(const std::string& folder)
{
    std::vector<fs::path> sources;
    if (fs::exists(kSource / folder))
        for (const auto& entry : fs::recursive_directory_iterator(kSource / folder))
            if (entry.is_regular_file() && IsSource(entry.path()))
                sources.push_back(entry.path());
    return sources;
}

TEST(LadderTest, EveryFolderIncludesOnlyFoldersAboveIt)
{
    std::size_t seen = 0;
    for (const auto& [folder, above] : kLadder) {
        for (const fs::path& source : SourcesOf(folder)) {
            for (const std::string& name : IncludesOf(source)) {
                const std::string target = name.substr(0, name.find('/'));
                if (name.find('/') == std::string::npos || !kLadder.contains(target))
                    continue;
                ++seen;
                EXPECT_TRUE(target == folder || above.contains(target))
                    << folder << "/ includes " << target << "/: not on the ladder ("
                    << source.string() << ")";
            }
        }
    }
    EXPECT_GT(seen, 100U);
}

TEST(LadderTest, EveryWingIncludesOnlyWingsBeforeIt)
{
    for (const auto& [folder, wings] : kWings) {
        const auto place = [&names = wings](const fs::path& wing) {
            return std::find(names.begin(), names.end(), wing.string()) - names.begin();
        };
        for (const fs::path& source : SourcesOf(folder)) {
            const auto wing = place(source.parent_path().filename());
            EXPECT_LT(wing, std::ssize(wings)) << source.string() << " is in no wing";
            for (const fs::path name : IncludesOf(source)) {
                if (name.string().starts_with(folder + "/")) {
                    EXPECT_LE(place(name.parent_path().filename()), wing)
                        << source.string() << " includes " << name.string();
                }
            }
        }
    }
}

TEST(LadderTest, OnlyTheEngineSeesTheStorage)
{
    for (const auto& [folder, above] : kLadder)
        for (const fs::path& source : SourcesOf(folder))
            for (const std::string& name : IncludesOf(source))
                EXPECT_FALSE(name == "sqlite3.h" && folder != "engine") << source.string();
}

TEST(LadderTest, OnlyTheWindowSeesItsToolkit)
{
    for (const auto& [folder, above] : kLadder)
        for (const fs::path& source : SourcesOf(folder))
            for (const std::string& name : IncludesOf(source))
                EXPECT_FALSE(name.starts_with('Q') && folder != "desktop")
                    << source.string() << " includes " << name;
}

TEST(LadderTest, OnlyOneCommandIncludesTheAutomation)
{
    for (const fs::path& source : SourcesOf("cli"))
        for (const std::string& name : IncludesOf(source))
            EXPECT_TRUE(!name.starts_with("automation/") || source.filename() == "Automate.cpp")
                << source.string() << " includes " << name;
}

TEST(LadderTest, EverySourceFolderIsOnTheLadder)
{
    const std::set<std::string> beside = {"tests", "bench", "packaging", "docs", "cmake", "build"};
    for (const auto& entry : fs::directory_iterator(kSource)) {
        const std::string name = entry.path().filename().string();
        if (!entry.is_directory() || name.starts_with('.') || beside.contains(name))
            continue;
        EXPECT_TRUE(SourcesOf(name).empty() || kLadder.contains(name))
            << name << "/ is not on the ladder";
    }
}

}  // namespace
