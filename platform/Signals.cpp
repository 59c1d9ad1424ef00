#include "platform/Signals.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <utility>

namespace clb {
namespace {

constexpr int kEnding[] = {SIGTERM, SIGINT, SIGHUP};

std::atomic<int> wake = -1;  // the end of the pipe that the handler writes to
int woken = -1;              // the end that becomes readable
pthread_t mainThread;
sigset_t recorded;

/// Only the main thread waits for anything, so other threads pass the signal on to it.
void Record(int signal)
{
    const int before = errno;
    if (pthread_equal(pthread_self(), mainThread) == 0) {
        pthread_kill(mainThread, signal);
    } else if (!Interruption::Asked()) {
        Interruption::Ask(signal);
        [[maybe_unused]] const ssize_t written = ::write(wake, "", 1);
    } else if (signal != SIGHUP) {  // a closing terminal sends SIGHUP twice
        ::signal(signal, SIG_DFL);
        ::raise(signal);
    }
    errno = before;
}

bool IsIgnored(int signal)
{
    struct sigaction present {};
    return ::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

}  // namespace

void PrepareProcess()
{
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
    // Opened for the wrong direction, so that using a closed stream is still an error.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

EndingSignals::EndingSignals(BreakOff where)
{
    Interruption::Use(where);
    mainThread = pthread_self();
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) == 0) {
        woken = ends[0];
        wake = ends[1];
    }
    sigemptyset(&recorded);
    struct sigaction action {};
    action.sa_handler = &Record;  // without SA_RESTART: a waiting system call returns
    for (const int signal : kEnding) {
        if (IsIgnored(signal))
            continue;
        sigaddset(&recorded, signal);
        ::sigaction(signal, &action, nullptr);
    }
}

EndingSignals::~EndingSignals()
{
    for (const int signal : kEnding)
        if (sigismember(&recorded, signal) == 1)
            ::signal(signal, SIG_DFL);
    sigemptyset(&recorded);
    ::close(wake.exchange(-1));
    ::close(std::exchange(woken, -1));
}

int EndingSignals::Descriptor()
{
    return woken;
}

void EndBySignal()
{
    const int signal = Interruption::Signal();
    ::signal(signal, SIG_DFL);
    ::raise(signal);
    // This is reached only if the signal is blocked.
    ::_exit(128 + signal);
}

}  // namespace clb
