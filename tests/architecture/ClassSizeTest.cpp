// A class is as long as its functions together, however many files it spans.

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = CLB_SOURCE;

constexpr int kMostLines = 350;

/// Classes that are still longer. Each entry goes when its class is split.
const std::set<std::string> kStillLonger = {};

bool IsAlphanumeric(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

std::size_t EndOfRawString(const std::string& text, std::size_t at)
{
    const std::size_t open = text.find('(', at);
    const std::string close = ")" + text.substr(at + 2, open - at - 2) + "\"";
    return text.find(close, open) + close.size();
}

std::size_t EndOfLiteral(const std::string& text, std::size_t at)
{
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != text[at])
        end += text[end] == '\\' ? 2U : 1U;
    return end + 1;
}

/// The end of the comment, preprocessor line or literal that begins here; `at` if none does.
std::size_t EndOfBlank(const std::string& text, std::size_t at, bool lineStart)
{
    const char c = text[at];
    const char before = at > 0 ? text[at - 1] : ' ';
    if (text.compare(at, 2, "//") == 0 || (c == '#' && lineStart))
        return std::min(text.find('\n', at), text.size());
    if (text.compare(at, 2, "/*") == 0)
        return std::min(text.find("*/", at + 2), text.size() - 2) + 2;
    if (text.compare(at, 2, "R\"") == 0 && !IsAlphanumeric(before))
        return EndOfRawString(text, at);
    // After a digit it separates digits.
    if (c == '"' || (c == '\'' && std::isdigit(static_cast<unsigned char>(before)) == 0))
        return EndOfLiteral(text, at);
    return at;
}

/// The text with comments, preprocessor lines and the contents of literals blanked out. Line breaks
/// stay.
std::string CodeOnly(const std::string& text)
{
    std::string code;
    bool lineStart = true;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = EndOfBlank(text, at, lineStart);
        if (end == at) {
            const char c = text[at++];
            code += c;
            if (c == '\n')
                lineStart = true;
            else if (std::isspace(static_cast<unsigned char>(c)) == 0)
                lineStart = false;
            continue;
        }
        for (; at < end && at < text.size(); ++at)
            code += text[at] == '\n' ? '\n' : ' ';
    }
    return code;
}

bool IsName(char c)
{
    return IsAlphanumeric(c) || c == '_';
}

std::vector<std::string> Words(const std::string& text)
{
    std::vector<std::string> words;
    std::string word;
    for (const char c : text + " ") {
        if (IsName(c) || c == ':') {
            word += c;
        } else {
            if (!word.empty())
                words.push_back(word);
            word.clear();
        }
    }
    return words;
}

/// Counts the lines of the functions of each class in one file. A nested class has its outer ones
/// before its name, a class of a .cpp file that file's name.
class FunctionLines {
public:
    FunctionLines(const std::string& code, const std::string& file,
                  std::map<std::string, int>& lines)
        : code_(code), file_(file), lines_(lines)
    {
    }

    void Count() { Scope(""); }

private:
    /// Reads declarations up to the brace that ends the scope of a namespace or a class.
    void Scope(const std::string& ofClass)
    {
        std::string head;  // what was read since the last declaration ended
        int headLine = line_;
        while (at_ < code_.size()) {
            const char c = code_[at_];
            if (head.empty() && (c == ' ' || c == '\n')) {
                Advance();
                continue;
            }
            if (head.empty())
                headLine = line_;
            Advance();
            if (c == '}')
                return;
            if (c == ';') {
                head.clear();
            } else if (c != '{') {
                head += c;
            } else if (const std::string name = ClassIn(head); !name.empty()) {
                if (ofClass.empty())
                    ownClasses_.insert(name);
                Scope(ofClass.empty() ? name : ofClass + "::" + name);
                head.clear();
            } else if (IsNamespace(head)) {
                Scope("");
                head.clear();
            } else {
                Skip();
                if (!IsFunction(head)) {
                    head += "{}";  // an initializer: the declaration goes on
                    continue;
                }
                Add(head, ofClass, line_ - headLine + 1);
                head.clear();
            }
        }
    }

    static bool IsNamespace(const std::string& head)
    {
        const auto words = Words(head);
        return !words.empty() && words.front() == "namespace";
    }

    /// The name of the class whose body begins; empty if something else begins.
    static std::string ClassIn(const std::string& head)
    {
        if (head.find('(') != std::string::npos || head.find('=') != std::string::npos)
            return {};
        const auto words = Words(head);
        for (std::size_t at = 0; at + 1 < words.size(); ++at) {
            if (words[at] == "enum")
                return {};
            const bool inTemplate = at > 0 && words[0] == "template" && at == 1 &&
                                    head.find('>') > head.find(words[at]) + words[at].size() + 1 &&
                                    words.size() > at + 2 && words[at + 2] == "class";
            if ((words[at] == "class" || words[at] == "struct") && !inTemplate)
                return words[at + 1];
        }
        return {};
    }

    /// Whether a brace after this text begins a function's body, and not a member's initial value.
    static bool IsFunction(const std::string& head)
    {
        if (head.find('(') == std::string::npos)
            return false;
        const std::size_t last = head.find_last_not_of(" \n");
        if (head[last] == '=' || head[last] == ',' || head[last] == '(')
            return false;
        if (!IsName(head[last]))
            return true;
        const std::string word = Words(head).back();
        return word == "const" || word == "override" || word == "noexcept" || word == "final";
    }

    void Add(const std::string& head, const std::string& ofClass, int lines)
    {
        std::string owner = ofClass;
        if (owner.empty()) {
            const auto words = Words(head.substr(0, head.find('(')));
            const std::string name = words.empty() ? std::string() : words.back();
            const std::size_t last = name.rfind("::");
            if (last == std::string::npos || last == 0)
                return;
            owner = name.substr(0, last);
        }
        const bool ofFile =
            file_.ends_with(".cpp") && ownClasses_.contains(owner.substr(0, owner.find("::")));
        lines_[ofFile ? file_ + ": " + owner : owner] += lines;
    }

    /// Skips to the end of the braces that were just opened.
    void Skip()
    {
        for (int depth = 1; depth > 0 && at_ < code_.size(); Advance())
            depth += code_[at_] == '{' ? 1 : code_[at_] == '}' ? -1 : 0;
    }

    void Advance()
    {
        if (code_[at_++] == '\n')
            ++line_;
    }

    const std::string code_;
    const std::string file_;
    std::map<std::string, int>& lines_;
    std::set<std::string> ownClasses_;
    std::size_t at_ = 0;
    int line_ = 1;
};

std::map<std::string, int> LinesOf(const std::string& text, const std::string& file)
{
    std::map<std::string, int> lines;
    FunctionLines(CodeOnly(text), file, lines).Count();
    return lines;
}

std::map<std::string, int> CountTree()
{
    const std::set<std::string> left = {"build", "tests", "docs", "cmake"};
    std::map<std::string, int> lines;
    for (const auto& folder : fs::directory_iterator(kSource)) {
        const std::string name = folder.path().filename().string();
        if (!folder.is_directory() || name.starts_with('.') || left.contains(name))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
                continue;
            std::stringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            const std::string file = fs::relative(entry.path(), kSource).string();
            for (const auto& [owner, count] : LinesOf(text.str(), file))
                lines[owner] += count;
        }
    }
    return lines;
}

const std::map<std::string, int>& LinesInTree()
{
    static const std::map<std::string, int> lines = CountTree();
    return lines;
}

TEST(ClassSizeTest, CountsTheFunctionsOfAClass)
{
    EXPECT_EQ(LinesOf("class A {\n    int Get() const { return 1; }\n    int b_{2};\n};\n"
                      "A::A() : b_{3}\n{\n    // {\n}\n"
                      "int A::Set(int b)\n{\n    if (b) {\n    }\n    return b_;\n}\n",
                      "a.h"),
              (std::map<std::string, int>{{"A", 11}}));
}

TEST(ClassSizeTest, CountsNestedClassesAndThoseOfOneFileByThemselves)
{
    EXPECT_EQ(LinesOf("namespace n {\nstruct A {\n    class B {\n        void F()\n        {\n"
                      "        }\n    };\n};\nvoid A::B::G() {}\nint Free() { return 1; }\n}\n"
                      "void C::F() {}\n",
                      "a.cpp"),
              (std::map<std::string, int>{{"a.cpp: A::B", 4}, {"C", 1}}));
}

TEST(ClassSizeTest, NoClassHasTooManyLinesOfFunctions)
{
    const std::map<std::string, int>& lines = LinesInTree();
    EXPECT_GT(lines.size(), 100U);
    for (const auto& [name, count] : lines)
        EXPECT_TRUE(count <= kMostLines || kStillLonger.contains(name))
            << name << " has " << count << " lines of functions: it does two jobs";
}

TEST(ClassSizeTest, EveryExceptionIsStillNeeded)
{
    const std::map<std::string, int>& lines = LinesInTree();
    for (const std::string& name : kStillLonger) {
        const auto found = lines.find(name);
        EXPECT_TRUE(found != lines.end() && found->second > kMostLines) << name;
    }
}

}  // namespace
