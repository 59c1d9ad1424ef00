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

/// Finds out why a write failed earlier, while the command still ran, by writing again. Some output
/// is lost already, so one more line end does no harm.
int ReasonOfLostOutput()
{
    std::clearerr(stdout);
    errno = 0;
    return std::fputc('\n', stdout) == EOF || std::fflush(stdout) != 0 ? errno : 0;
}

}  // namespace

/// Returns false if the program is asked to end.
bool StandardInput::WaitForInput() const
{
    pollfd waiting[] = {{STDIN_FILENO, POLLIN, 0}, {wake_, POLLIN, 0}};
    while (!Interruption::Asked()) {
        const int ready = ::poll(waiting, 2, -1);
        if (ready > 0 && waiting[0].revents != 0)
            break;
        if (ready < 0 && errno != EINTR)
            break;  // read() reports the error
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
    std::string message = "Standard output cannot be written";
    if (reason != 0)
        message.append(": ").append(std::strerror(reason));
    return message + ".";
}

}  // namespace clb
