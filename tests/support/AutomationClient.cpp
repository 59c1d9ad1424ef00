#include "tests/support/AutomationClient.h"

#include <cstdlib>

namespace clb {
namespace {

/// The program, its first argument, and then the other arguments.
std::vector<std::string> DrivenProgram(const std::vector<std::string>& arguments)
{
    const char* named = std::getenv("CLB_AUTOMATE");
    const std::string text = named ? named : CLB_PROGRAM " automate";
    const std::size_t blank = text.rfind(' ');
    std::vector<std::string> words = {text.substr(0, blank), text.substr(blank + 1)};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

}  // namespace

AutomationClient::AutomationClient(const std::vector<std::string>& arguments)
    : program_(DrivenProgram(arguments)), firstLine_(Json::parse(program_.Read()))
{
}

Json AutomationClient::Ask(const Json& request)
{
    return AskLine(ToLine(request));
}

Json AutomationClient::AskLine(const std::string& line)
{
    program_.Send(line);
    return Json::parse(program_.Read());
}

}  // namespace clb
