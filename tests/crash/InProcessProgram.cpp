#include "tests/crash/InProcessProgram.h"

#include <istream>
#include <ostream>
#include <stdexcept>
#include <streambuf>

#include "automation/Automation.h"
#include "platform/SystemClock.h"
#include "tests/crash/FixedMoment.h"

namespace clb {

/// Hands on a request a line, and waits for it.
class InProcessProgram::Input : public std::streambuf {
public:
    explicit Input(InProcessProgram& program) : program_(program) {}

protected:
    int_type underflow() override
    {
        std::unique_lock lock(program_.mutex_);
        program_.changed_.wait(
            lock, [this] { return !program_.requests_.empty() || program_.inputEnded_; });
        if (program_.requests_.empty())
            return traits_type::eof();
        line_ = program_.requests_.front() + "\n";
        program_.requests_.pop_front();
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return traits_type::to_int_type(line_.front());
    }

private:
    InProcessProgram& program_;
    std::string line_;
};

class InProcessProgram::Output : public std::streambuf {
public:
    explicit Output(InProcessProgram& program) : program_(program) {}

protected:
    int_type overflow(int_type letter) override
    {
        line_ += traits_type::to_char_type(letter);
        return letter;
    }
    std::streamsize xsputn(const char* bytes, std::streamsize count) override
    {
        line_.append(bytes, static_cast<std::size_t>(count));
        return count;
    }
    int sync() override
    {
        const std::lock_guard lock(program_.mutex_);
        program_.replies_.push_back(std::move(line_));
        line_.clear();
        program_.changed_.notify_all();
        return 0;
    }

private:
    InProcessProgram& program_;
    std::string line_;
};

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
        Input input(*this);
        Output output(*this);
        std::istream requests(&input);
        std::ostream replies(&output);
        FixedClock clock(Date::FromIso(kMoment).value());
        RunAutomation(requests, replies, {folder, clock, quoteService}, nullptr);
    } catch (const std::exception& error) {
        escaped = error.what();
    }
    const std::lock_guard lock(mutex_);
    escaped_ = escaped;
    programEnded_ = true;
    changed_.notify_all();
}

Json InProcessProgram::Await()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !replies_.empty() || programEnded_; });
    if (replies_.empty())
        throw std::runtime_error("the program ended without a reply: " + escaped_);
    const Json reply = Json::parse(replies_.front());
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
