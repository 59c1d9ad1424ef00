#include "bench/Cost.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <stdexcept>

namespace clb {
namespace {

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double Seconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

[[noreturn]] void Become(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

}  // namespace

Cost& Cost::operator+=(const Cost& more)
{
    wall += more.wall;
    processor += more.processor;
    return *this;
}

Cost RunProgram(const std::vector<std::string>& command)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("cannot start a process");
    if (child == 0)
        Become(command);
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command.front() + " failed");
    return {Seconds(std::chrono::steady_clock::now() - start),
            Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
            std::int64_t{usage.ru_maxrss} * 1024};
}

Stopwatch::Stopwatch() : wall_(std::chrono::steady_clock::now()), processor_(ProcessorSeconds()) {}

Cost Stopwatch::Elapsed() const
{
    return {Seconds(std::chrono::steady_clock::now() - wall_), ProcessorSeconds() - processor_, 0};
}

}  // namespace clb
