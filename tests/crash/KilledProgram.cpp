#include "tests/crash/KilledProgram.h"

#include <unistd.h>

#include "tests/crash/FixedMoment.h"

namespace clb {

KilledProgram::KilledProgram(const std::string& folder, const std::string& quoteService)
    : program_({CLB_PROGRAM, "automate", "--home", folder, "--now", kMoment, "--quote-service",
                quoteService})
{
}

Json KilledProgram::FirstLine()
{
    return Json::parse(program_.Read());
}

Json KilledProgram::Ask(const Json& request)
{
    Send(request);
    return Json::parse(program_.Read());
}

void KilledProgram::Send(const Json& request)
{
    program_.Send(ToLine(request));
}

bool KilledProgram::RepliesBefore(Clock::time_point moment)
{
    while (!program_.HasLine() && Clock::now() < moment)
        if (!program_.Poll())
            return false;
    return program_.HasLine();
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
    program_.Kill();
    std::vector<Json> replies;
    while (program_.HasLine())
        replies.push_back(Json::parse(program_.Read()));
    return replies;
}

}  // namespace clb
