// A fixture that runs the program clb in a shell.
#pragma once
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "json/ValueJson.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// The program clb in a shell, with a folder for its books.
class CommandFixture : public testing::Test {
protected:
    /// Runs clb in a shell with these arguments. Returns the exit code.
    int Run(const std::string& words)
    {
        const std::string command = "'" CLB_PROGRAM "' " + words + " >'" + folder.Path("out") +
                                    "' 2>'" + folder.Path("err") + "'";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Out() { return folder.Read("out"); }
    std::string Err() { return folder.Read("err"); }
    std::string Books() { return "'" + folder.Path("books") + "'"; }
    std::string Home() { return " --home " + Books(); }
    /// Runs one SQL statement on the books and returns its rows.
    std::string Sql(const std::string& statement)
    {
        EXPECT_EQ(Run("sql " + Books() + " \"" + statement + "\""), 0) << Out();
        return ToLine(Json::parse(Out())["rows"]);
    }
    std::string Statement(const std::string& account, const std::string& amount)
    {
        return "'" +
               folder.Write("march.ofx",
                            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n"
                            "<ACCTID>" +
                                account + "\r\n<STMTTRN><DTPOSTED>20060305<TRNAMT>" + amount +
                                "<FITID>1<NAME>Shop</STMTTRN>\r\n") +
               "'";
    }

    TempFolder folder;
};

}  // namespace clb
