#include "platform/StandardStreams.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

#include "base/Interruption.h"

namespace clb {
namespace {

/// What went wrong while the command still ran. Something was lost then, so one line end more does
/// no harm.
int ReasonOfLostOutput()
{
    std::clearerr(stdout);
    errno = 0;
    return std::fputc('\n', stdout) == EOF || std::fflush(stdout) != 0 ? errno : 0;
}

}  // namespace

/// False when the program is told to end.
bool StandardInput::WaitForInput() const
{
    pollfd waiting[] = {{STDIN_FILENO, POLLIN, 0}, {wake_, POLLIN, 0}};
    while (!Interruption::Asked()) {
        const int ready = ::poll(waiting, 2, -1);
        if (ready > 0 && waiting[0].revents != 0)
            break;
        if (ready < 0 && errno != EINTR)
            break;  // reading tells what is wrong
    }
    return !Interruption::Asked();
}

StandardInput::int_type StandardInput::underflow()
{
    ssize_t count = -1;
    do {
        if (!WaitForInput())
            return traits_type::eof();
        count = ::read(STDIN_FILENO, buffer_.data(), buffer_.size());
    } while (count < 0 && (errno == EINTR || errno == EAGAIN));
    if (count <= 0)
        return traits_type::eof();
    setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
    return traits_type::to_int_type(*gptr());
}

std::string FinishOutput()
{
    errno = 0;
    std::cout.flush();
    const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (std::cout && written)
        return "";
    const int reason = errno != 0 ? errno : ReasonOfLostOutput();
    std::string told = "Standard output cannot be written";
    if (reason != 0)
        told.append(": ").append(std::strerror(reason));
    return told + ".";
}

}  // namespace clb
