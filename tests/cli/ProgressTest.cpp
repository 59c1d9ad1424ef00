#include <gtest/gtest.h>

#include <future>
#include <sstream>

#include "cli/Progress.h"

namespace clb {
namespace {

using namespace std::chrono_literals;

/// Signals the test when the first line is written.
class FirstLine : public std::stringbuf {
public:
    std::future<void> Written() { return written_.get_future(); }

protected:
    int sync() override
    {
        if (!done_)
            written_.set_value();
        done_ = true;
        return std::stringbuf::sync();
    }

private:
    std::promise<void> written_;
    bool done_ = false;
};

TEST(ProgressTest, AShortCommandReportsNothing)
{
    std::ostringstream out;
    {
        Progress progress(out, 2, 1h);
        progress.Next("a.ofx");
        progress.Next("b.ofx");
    }

    EXPECT_EQ(out.str(), "");
}

TEST(ProgressTest, ALongCommandReportsEachStepOnce)
{
    FirstLine lines;
    std::ostream out(&lines);
    auto written = lines.Written();
    {
        Progress progress(out, 7, 1ms);
        progress.Next("a\033.ofx");
        ASSERT_EQ(written.wait_for(60s), std::future_status::ready);
    }

    EXPECT_EQ(lines.str(), "Importing 1 of 7: a .ofx\n");
}

}  // namespace
}  // namespace clb
