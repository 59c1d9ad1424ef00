#include "cli/Progress.h"

#include <new>

#include "cli/Table.h"
#include "cli/Thread.h"

namespace clb {

Progress::Progress(std::ostream& stream, std::size_t count, std::chrono::milliseconds pause)
    : out_(stream.rdbuf()), count_(count), pause_(pause), teller_(StartThread([this] { Tell(); }))
{
}

Progress::~Progress()
{
    {
        const std::lock_guard guard(lock_);
        end_ = true;
    }
    ended_.notify_one();
    teller_.join();
}

void Progress::Next(const std::string& name)
{
    const std::lock_guard guard(lock_);
    ++number_;
    name_ = name;
}

void Progress::Tell()
{
    std::unique_lock guard(lock_);
    while (!ended_.wait_for(guard, pause_, [this] { return end_; })) {
        if (number_ == told_)
            continue;
        told_ = number_;
        try {
            out_ << Printable("Importing " + std::to_string(number_) + " of " +
                              std::to_string(count_) + ": " + name_)
                 << std::endl;
        } catch (const std::bad_alloc&) {
            // The import itself goes on or tells it.
        }
    }
}

}  // namespace clb
