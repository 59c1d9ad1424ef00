#include <gtest/gtest.h>
#include <sys/resource.h>

#include "base/RuntimeError.h"
#include "import/StatementFile.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

std::int32_t ErrorOf(const std::string& path)
{
    try {
        static_cast<void>(ReadStatement(path));
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

/// No file can be opened while it exists.
class NoMoreFiles {
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit none{0, before_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_{};
};

TEST(StatementFileTest, AFileThatCannotBeOpenedIsAnErrorAndNotEmpty)
{
    TempFolder folder;
    const std::string path = folder.Write("a.ofx", "<OFX>");
    EXPECT_EQ(ReadStatement(path), "<OFX>");

    EXPECT_EQ(ErrorOf(folder.Path("b.ofx")), errors::FileNotFound);
    EXPECT_EQ(ErrorOf(folder.Path()), errors::PathAccess);
    const NoMoreFiles none;
    EXPECT_EQ(ErrorOf(path), errors::PathAccess);
}

}  // namespace
}  // namespace clb
