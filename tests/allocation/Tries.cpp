#include "tests/allocation/Tries.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace clb {
namespace {

constexpr std::size_t kMostProblems = 5;
constexpr int kFailed = 0;      // an allocation failed, and all is well
constexpr int kRanThrough = 3;  // none failed
constexpr int kWrong = 1;
constexpr unsigned kSeconds = 30;

bool Thorough()
{
    return std::getenv("CLB_ALLOCATION_ALL") != nullptr;
}

void Silence()
{
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
}

}  // namespace

/// What the process of a try reports to the test's process.
struct Tries::Outcome {
    std::array<char, 4096> text;
};

Tries::Tries(BookFolder& books, Refusal refusal, std::int64_t stride, Counted counted)
    : books_(books), refusal_(refusal), stride_(Thorough() ? 1 : stride), counted_(counted)
{
    void* const shared =
        ::mmap(nullptr, sizeof(Outcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    outcome_ = static_cast<Outcome*>(shared);
}

Tries::~Tries()
{
    ::munmap(outcome_, sizeof(Outcome));
}

bool Tries::Next()
{
    // Runs one try in this process, for a debugger.
    if (const char* const only = std::getenv("CLB_ALLOCATION_AT")) {
        n_ = std::atoll(only);
        return true;
    }
    for (bool more = true; more;) {
        n_ += n_ < 1 ? 1 : stride_;
        outcome_->text[0] = '\0';
        const pid_t process = ::fork();
        if (process == 0) {
            ::alarm(kSeconds);
            Silence();
            return true;
        }
        int status = 0;
        ::waitpid(process, &status, 0);
        if (Undisturbed()) {
            after_ = books_.Tables();
            afterFiles_ = books_.Files();
        }
        more = Evaluate(status) && problems_.size() < kMostProblems;
        books_.PutBack();
    }
    return false;
}

bool Tries::Evaluate(int status)
{
    const std::string place = "allocation " + std::to_string(n_) + ": ";
    if (WIFSIGNALED(status)) {
        problems_.push_back(place + "ended by signal " + std::to_string(WTERMSIG(status)));
        return true;
    }
    const int code = WEXITSTATUS(status);
    if (code != kFailed && code != kRanThrough)
        problems_.push_back(place + outcome_->text.data());
    return Undisturbed() || code == kFailed || code == kWrong;
}

void Tries::End(const std::string& wrong) const
{
    std::strncpy(outcome_->text.data(), wrong.c_str(), outcome_->text.size() - 1);
    const int fine = FailingAllocations::Reached() ? kFailed : kRanThrough;
    std::cout << wrong << std::endl;  // for a person who looks at a single try
    ::_exit(wrong.empty() ? fine : kWrong);
}

bool Tries::LooksFurther() const
{
    return n_ % 8 == 1 || Thorough();
}

bool Tries::IsAsBefore() const
{
    return books_.Untouched() || books_.Tables() == books_.KeptTables();
}

std::string Tries::WrongInBook(bool succeeded) const
{
    try {
        for (const std::string& name : books_.FileNames())
            if (!books_.WasKept(name) && !afterFiles_.contains(name))
                return "left: " + name;
        if (succeeded) {
            const TableDump found = books_.Tables();
            return found == after_ ? WrongInHistory()
                                   : "not as after it:\n" + Difference(after_, found);
        }
        if (IsAsBefore())
            return WrongInHistory();
        const TableDump found = books_.Tables();
        return (found == after_ ? "kept, but told as a failure:\n" : "half kept:\n") +
               Difference(books_.KeptTables(), found);
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// Of a command that records a step. What updates an older schema records none.
std::string Tries::WrongInHistory() const
{
    const bool records =
        std::any_of(after_.lines.begin(), after_.lines.end(),
                    [](const std::string& line) { return line.starts_with("CvStep|"); });
    return records && LooksFurther() ? books_.WrongInHistory() : "";
}

}  // namespace clb
