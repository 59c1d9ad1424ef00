#include "tests/support/LinePipes.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace clb {

LinePipes::LinePipes(const std::vector<std::string>& words)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> down{};
    std::array<int, 2> up{};
    if (pipe2(down.data(), O_CLOEXEC) != 0 || pipe2(up.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, down[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, up[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int failed =
        posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(down[0]);
    close(up[1]);
    down_ = down[1];
    up_ = up[0];
    if (failed != 0)
        throw std::runtime_error("cannot start " + words[0]);
}

LinePipes::~LinePipes()
{
    End();
}

void LinePipes::Send(const std::string& line)
{
    const std::string whole = line + "\n";
    std::size_t sent = 0;
    while (sent < whole.size()) {
        const ssize_t count = write(down_, whole.data() + sent, whole.size() - sent);
        if (count < 0)
            throw std::runtime_error("the program takes no requests any more");
        sent += static_cast<std::size_t>(count);
    }
}

bool LinePipes::Receive()
{
    std::array<char, 65536> buffer{};
    const ssize_t count = read(up_, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    received_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

std::string LinePipes::Read()
{
    while (!HasLine())
        if (!Receive())
            throw std::runtime_error("the program ended without a reply");
    const std::size_t end = received_.find('\n');
    std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return line;
}

bool LinePipes::Poll()
{
    pollfd waiting{up_, POLLIN, 0};
    return poll(&waiting, 1, 0) <= 0 || Receive();
}

void LinePipes::WaitForEnd()
{
    while (Receive()) {
    }
    if (down_ >= 0)
        close(down_);
    close(up_);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int LinePipes::End()
{
    if (process_ < 0)
        return exitCode_;
    close(down_);
    down_ = -1;
    WaitForEnd();
    return exitCode_;
}

void LinePipes::Kill()
{
    if (process_ < 0)
        return;
    kill(process_, SIGKILL);
    WaitForEnd();
}

}  // namespace clb
