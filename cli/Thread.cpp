#include "cli/Thread.h"

#include <system_error>
#include <utility>

namespace clb {

RuntimeError NoThread()
{
    return {errors::OutOfMemory,
            "There is not enough memory for another thread, or too many programs are running."};
}

std::thread StartThread(std::function<void()> work)
{
    try {
        return std::thread(std::move(work));
    } catch (const std::system_error&) {
        throw NoThread();
    }
}

}  // namespace clb
