#include "tests/crash/KilledProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "tests/crash/FixedMoment.h"

extern char** environ;

namespace clb {

KilledProgram::KilledProgram(const std::string& folder, const std::string& quoteService)
{
    // A killed program must not end the test with it.
    std::signal(SIGPIPE, SIG_IGN);
    std::vector<std::string> words = {CLB_PROGRAM, "automate", "--home",          folder,
                                      "--now",     kMoment,    "--quote-service", quoteService};
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe2(down.data(), O_CLOEXEC) != 0 || pipe2(up.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, down[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, up[1], STDOUT_FILENO);
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

KilledProgram::~KilledProgram()
{
    close(requests_);
    while (Receive()) {
    }
    close(replies_);
    if (process_ > 0)
        waitpid(process_, nullptr, 0);
}

bool KilledProgram::Receive()
{
    std::array<char, 65536> buffer{};
    const ssize_t count = read(replies_, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    received_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

Json KilledProgram::TakeLine()
{
    const std::size_t end = received_.find('\n');
    Json reply = Json::parse(received_.substr(0, end));
    received_.erase(0, end + 1);
    return reply;
}

Json KilledProgram::ReadReply()
{
    while (!HasLine())
        if (!Receive())
            throw std::runtime_error("the program ended without a reply");
    return TakeLine();
}

Json KilledProgram::FirstLine()
{
    return ReadReply();
}

Json KilledProgram::Ask(const Json& request)
{
    Send(request);
    return ReadReply();
}

void KilledProgram::Send(const Json& request)
{
    const std::string line = ToLine(request) + "\n";
    std::size_t sent = 0;
    while (sent < line.size()) {
        const ssize_t count = write(requests_, line.data() + sent, line.size() - sent);
        if (count < 0)
            throw std::runtime_error("the program takes no requests any more");
        sent += static_cast<std::size_t>(count);
    }
}

bool KilledProgram::RepliesBefore(Clock::time_point moment)
{
    while (!HasLine() && Clock::now() < moment) {
        pollfd waiting{replies_, POLLIN, 0};
        if (poll(&waiting, 1, 0) > 0 && !Receive())
            return false;
    }
    return HasLine();
}

bool KilledProgram::CreatesBefore(const std::string& file, Clock::time_point moment)
{
    while (Clock::now() < moment) {
        if (access(file.c_str(), F_OK) == 0)
            return true;
        if (RepliesBefore(Clock::now() + std::chrono::microseconds(5)))
            return false;
    }
    return false;
}

std::vector<Json> KilledProgram::Kill()
{
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = -1;
    while (Receive()) {
    }
    std::vector<Json> replies;
    while (HasLine())
        replies.push_back(TakeLine());
    return replies;
}

}  // namespace clb
