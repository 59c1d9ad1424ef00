#include "tests/crash/InProcessProgram.h"

#include <stdexcept>

#include "platform/SystemClock.h"
#include "tests/crash/FixedMoment.h"
#include "tests/support/RunOnLines.h"

namespace clb {

InProcessProgram::InProcessProgram(const std::string& folder, const std::string& quoteService)
    : thread_([this, folder, quoteService] { Run(folder, quoteService); })
{
    firstLine_ = Await();
}

InProcessProgram::~InProcessProgram()
{
    End();
}

void InProcessProgram::Run(const std::string& folder, const std::string& quoteService)
{
    std::string escaped;
    try {
        FixedClock clock(Date::FromIso(kMoment).value());
        RunOnLines(
            {folder, clock, quoteService}, [this](std::string& line) { return Give(line); },
            [this](const std::string& line) { Take(line); });
    } catch (const std::exception& error) {
        escaped = error.what();
    }
    const std::lock_guard lock(mutex_);
    escaped_ = escaped;
    programEnded_ = true;
    changed_.notify_all();
}

bool InProcessProgram::Give(std::string& line)
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !requests_.empty() || inputEnded_; });
    if (requests_.empty())
        return false;
    line = requests_.front() + "\n";
    requests_.pop_front();
    return true;
}

void InProcessProgram::Take(const std::string& line)
{
    const std::lock_guard lock(mutex_);
    replies_.push_back(line);
    changed_.notify_all();
}

Json InProcessProgram::Await()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !replies_.empty() || programEnded_; });
    if (replies_.empty())
        throw std::runtime_error("the program ended without a reply: " + escaped_);
    Json reply = Json::parse(replies_.front());
    replies_.pop_front();
    return reply;
}

Json InProcessProgram::Ask(const Json& request)
{
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(ToLine(request));
        changed_.notify_all();
    }
    return Await();
}

std::string InProcessProgram::End()
{
    {
        const std::lock_guard lock(mutex_);
        inputEnded_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable())
        thread_.join();
    return escaped_;
}

}  // namespace clb
