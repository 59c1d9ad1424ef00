#include "tests/stress/ClbProcess.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace clb {
namespace {

int FileInMemory()
{
    const int file = memfd_create("clb-output", MFD_CLOEXEC);
    if (file < 0)
        throw std::runtime_error("no file in memory");
    return file;
}

/// Reads the file from its start and closes it.
std::string TakeAll(int file)
{
    std::string text;
    std::array<char, 65536> buffer{};
    lseek(file, 0, SEEK_SET);
    for (ssize_t count = 1; count > 0;) {
        count = read(file, buffer.data(), buffer.size());
        if (count > 0)
            text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(file);
    return text;
}

}  // namespace

ClbProcess::ClbProcess(const std::vector<std::string>& arguments)
    : outFile_(FileInMemory()), errFile_(FileInMemory())
{
    std::vector<std::string> words{CLB_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    for (const std::string& argument : arguments)
        arguments_ += " " + argument;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", 0, 0);
    posix_spawn_file_actions_adddup2(&actions, outFile_, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errFile_, STDERR_FILENO);
    const int failed =
        posix_spawn(&process_, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0)
        throw std::runtime_error("cannot start clb");
}

ClbProcess::~ClbProcess()
{
    Wait();
}

int ClbProcess::Wait()
{
    if (process_ < 0)
        return exitCode_;
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    took_ = std::chrono::steady_clock::now() - start_;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    out_ = TakeAll(outFile_);
    err_ = TakeAll(errFile_);
    return exitCode_;
}

std::string ClbProcess::Story() const
{
    return "clb" + arguments_ + " -> " + std::to_string(exitCode_) + "\n" + out_ + err_;
}

}  // namespace clb
