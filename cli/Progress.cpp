#include "cli/Progress.h"

#include <new>

#include "cli/Table.h"
#include "cli/Thread.h"

namespace clb {

Progress::Progress(std::ostream& stream, std::size_t count, std::chrono::milliseconds pause)
    : out_(stream.rdbuf()),
      count_(count),
      pause_(pause),
      reporter_(StartThread([this] { Report(); }))
{
}

Progress::~Progress()
{
    {
        const std::lock_guard guard(lock_);
        end_ = true;
    }
    ended_.notify_one();
    reporter_.join();
}

void Progress::Next(const std::string& name)
{
    const std::lock_guard guard(lock_);
    ++number_;
    name_ = name;
}

void Progress::Report()
{
    std::unique_lock guard(lock_);
    while (!ended_.wait_for(guard, pause_, [this] { return end_; })) {
        if (number_ == reported_)
            continue;
        reported_ = number_;
        try {
            out_ << Printable("Importing " + std::to_string(number_) + " of " +
                              std::to_string(count_) + ": " + name_)
                 << std::endl;
        } catch (const std::bad_alloc&) {
            // The import itself may still succeed. If not, it reports the lack of memory.
        }
    }
}

}  // namespace clb
