// Tests as a user who may not do everything.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace clb {

/// Runs the test as the user "nobody" while it exists, because the superuser may read and write
/// everything. The user gets the paths. Does nothing if the test is not run by the superuser.
class AsOrdinaryUser {
public:
    explicit AsOrdinaryUser(const std::vector<std::string>& paths)
    {
        if (!superuser_)
            return;
        for (const std::string& path : paths)
            EXPECT_EQ(chown(path.c_str(), kNobody, kNobody), 0);
        EXPECT_EQ(seteuid(kNobody), 0);
    }
    ~AsOrdinaryUser() { EXPECT_TRUE(!superuser_ || seteuid(0) == 0); }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    const bool superuser_ = geteuid() == 0;
};

}  // namespace clb
