#include "tests/crash/Leftovers.h"

#include <filesystem>

#include "tests/support/BackAndForth.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class Inspection {
public:
    Inspection(const std::string& folder, const Allowed& allowed, const Starter& start)
        : folder_(folder), allowed_(allowed), start_(start)
    {
    }

    std::string Run(FirstOpener first, std::string& outcome)
    {
        std::string wrong;
        if (first == FirstOpener::Check)
            wrong = Findings();
        else if (first == FirstOpener::Program)
            wrong = Portrait();
        if (wrong.empty())
            wrong = Rows(outcome);
        if (wrong.empty())
            wrong = first == FirstOpener::Check ? Compare(findings_, *found_) : LookAgain();
        return wrong.empty() ? BackAndForth() : wrong;
    }

private:
    std::string Findings()
    {
        findings_ = FindingsIn(folder_);
        return findings_.find("damage: ") == std::string::npos ? "" : findings_;
    }
    std::string Portrait()
    {
        const auto program = start_(folder_);
        const Json first = program->FirstLine();
        if (first["ok"] == false)
            return "the next start fails: " + ToLine(first);
        portrait_ = PortraitOf(*program);
        return "";
    }
    std::string Rows(std::string& outcome)
    {
        const TableDump found = DumpOf(folder_ + "/db/clb.mdb");
        if (found == allowed_.before->dump) {
            found_ = allowed_.before;
            outcome = allowed_.before == allowed_.after ? "saved" : "before";
        } else if (found == allowed_.after->dump) {
            found_ = allowed_.after;
            outcome = "after";
        } else {
            return Mixture(found, outcome);
        }
        return "";
    }
    std::string Mixture(const TableDump& found, std::string& outcome)
    {
        if (!allowed_.mixture)
            return "neither as before nor as after; from before to what is found:\n" +
                   Difference(allowed_.before->dump, found);
        outcome = "mixture";
        found_ = Look(folder_, nullptr);
        return WhyNoMixture(allowed_.before->dump, allowed_.after->dump, found);
    }
    std::string LookAgain()
    {
        std::string wrong = Findings();
        if (wrong.empty())
            wrong = Compare(findings_, *found_);
        if (wrong.empty() && portrait_.empty())
            wrong = Portrait();
        if (!wrong.empty())
            return wrong;
        if (DumpOf(folder_ + "/db/clb.mdb") != found_->dump)
            return "the next start changed the file";
        const std::string& expected = PortraitOf(*found_);
        return portrait_ == expected ? "" : "the views show something else:\n" + portrait_;
    }
    /// Compares the accounts with wrong sums and the other things that the program keeps in order.
    static std::string Compare(const std::string& findings, const Moment& moment)
    {
        const std::string& expected = FindingsOf(moment);
        if (findings != expected)
            return "the check finds:\n" + findings + "and should find:\n" + expected;
        return findings.find("balance: ") == std::string::npos ? "" : findings;
    }

    /// The history must fit the tables, whatever was interrupted.
    std::string BackAndForth()
    {
        const TempFolder folder(TempFolder::Memory());
        std::filesystem::copy_file(folder_ + "/db/clb.mdb", folder.Path("clb.mdb"));
        const WayBack back = GoBackAndForth(folder.Path("clb.mdb"), allowed_.before->start);
        return back.past == Past::Whole ? "" : "the history does not lead back: " + back.why;
    }

    const std::string& folder_;
    const Allowed& allowed_;
    const Starter& start_;
    std::string findings_;
    std::string portrait_;
    MomentPtr found_;
};

}  // namespace

std::string WhatIsWrong(const std::string& folder, const Allowed& allowed, FirstOpener first,
                        const Starter& start, std::string& outcome)
{
    try {
        return Inspection(folder, allowed, start).Run(first, outcome);
    } catch (const std::exception& error) {
        return std::string("cannot be read: ") + error.what();
    }
}

}  // namespace clb
