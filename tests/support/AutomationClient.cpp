#include "tests/support/AutomationClient.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

extern char** environ;

namespace clb {
namespace {

/// Program and first argument.
std::vector<std::string> DrivenProgram()
{
    const char* named = std::getenv("CLB_AUTOMATE");
    const std::string words = named ? named : CLB_PROGRAM " automate";
    const std::size_t blank = words.rfind(' ');
    return {words.substr(0, blank), words.substr(blank + 1)};
}

}  // namespace

AutomationClient::AutomationClient(const std::vector<std::string>& arguments)
{
    std::vector<std::string> words = DrivenProgram();
    words.insert(words.end(), arguments.begin(), arguments.end());
    // A program that ended early must not end the test with it.
    std::signal(SIGPIPE, SIG_IGN);
    Start(words);
    firstLine_ = ReadReply();
}

AutomationClient::~AutomationClient()
{
    ExitCode();
}

void AutomationClient::Start(const std::vector<std::string>& words)
{
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe2(down.data(), O_CLOEXEC) != 0 || pipe2(up.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, down[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, up[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int failed =
        posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(down[0]);
    close(up[1]);
    requests_ = down[1];
    replies_ = up[0];
    if (failed != 0)
        throw std::runtime_error("cannot start " + words[0]);
}

bool AutomationClient::Receive()
{
    std::array<char, 65536> buffer{};
    const ssize_t count = read(replies_, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    received_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

Json AutomationClient::ReadReply()
{
    std::size_t end = received_.find('\n');
    while (end == std::string::npos) {
        if (!Receive())
            throw std::runtime_error("the program ended without a reply");
        end = received_.find('\n');
    }
    const std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return Json::parse(line);
}

Json AutomationClient::Ask(const Json& request)
{
    return AskLine(ToLine(request));
}

Json AutomationClient::AskLine(const std::string& line)
{
    const std::string whole = line + "\n";
    std::size_t sent = 0;
    while (sent < whole.size()) {
        const ssize_t count = write(requests_, whole.data() + sent, whole.size() - sent);
        if (count < 0)
            throw std::runtime_error("the program takes no requests any more");
        sent += static_cast<std::size_t>(count);
    }
    return ReadReply();
}

int AutomationClient::ExitCode()
{
    if (process_ < 0)
        return exitCode_;
    close(requests_);
    while (Receive()) {
    }
    close(replies_);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return exitCode_;
}

}  // namespace clb
