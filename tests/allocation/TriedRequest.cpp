#include "tests/allocation/TriedRequest.h"

#include <algorithm>

#include "platform/SystemClock.h"
#include "tests/crash/FixedMoment.h"
#include "tests/support/RunOnLines.h"

namespace clb {
namespace {

/// The data rows of a grid's reply.
Json DataRows(const Json& grid)
{
    Json rows = Json::array();
    for (const Json& row : grid["rows"])
        if (row["kind"] == "data")
            rows.push_back(row["values"]);
    return rows;
}

}  // namespace

TriedRequest::TriedRequest(BookFolder& books, std::vector<Json> shown, std::vector<Json> made,
                           Json request)
    : books_(books), shown_(std::move(shown)), made_(std::move(made)), request_(std::move(request))
{
}

std::vector<std::string> TriedRequest::Run()
{
    step_ = Step::Show;
    at_ = 0;
    Tries tries(books_, Refusal::One, 7, Counted::Storage);
    tries_ = &tries;
    try {
        FixedClock clock(Date::FromIso(kMoment).value());
        RunOnLines(
            {books_.Path(), clock, ""}, [this](std::string& line) { return Give(line); },
            [this](const std::string& reply) { Take(reply); });
    } catch (const std::exception&) {
        FailingAllocations::End();
        if (!trying_)
            throw;
        if (answered_)
            wrong_ += "ended after a reply";
        else
            wrong_ = tries.WrongInBook(false);
    }
    if (trying_)
        tries.End(wrong_);
    std::vector<std::string> problems = tries.Problems();
    if (!wrong_.empty())
        problems.push_back(wrong_);
    if (tries.Failed() < 10)
        problems.push_back("next to nothing was tried");
    return problems;
}

bool TriedRequest::Give(std::string& line)
{
    const auto give = [&line](const Json& request) {
        line = ToLine(request) + "\n";
        return true;
    };
    if (step_ == Step::Show && at_ < shown_.size())
        return give(shown_[at_++]);
    if (step_ == Step::Show) {
        step_ = Step::Look;
        at_ = 0;
        return give({{"do", "grid"}});
    }
    if (step_ == Step::Make && at_ < made_.size())
        return give(made_[at_++]);
    if (step_ == Step::Make) {
        step_ = Step::Try;
        line = ToLine(request_) + "\n";
        trying_ = tries_->Next();
        if (trying_)
            tries_->Begin();
        return trying_;
    }
    if (step_ == Step::LookAgain)
        return give({{"do", "grid"}});
    if (step_ == Step::Command)
        return give({{"do", "sql"}, {"text", "UPDATE Account SET Description = 'Next one'"}});
    return false;
}

void TriedRequest::Take(const std::string& reply)
{
    if (step_ == Step::Try)
        FailingAllocations::End();
    const Json json = Json::parse(reply);
    switch (step_) {
        case Step::Look:
            rowsBefore_ = DataRows(json);
            step_ = Step::Make;
            break;
        case Step::Try: Judge(json); break;
        case Step::LookAgain:
            if (json["ok"] == false || DataRows(json) != rowsBefore_)
                wrong_ += "shown: " + reply;
            step_ = Step::Command;
            break;
        case Step::Command: JudgeNext(json); break;
        default:
            if (json["ok"] == false)
                wrong_ += reply;
            break;
    }
}

void TriedRequest::Judge(const Json& reply)
{
    answered_ = true;
    const bool ok = reply["ok"] == true;
    if (tries_->Undisturbed()) {
        wrong_ = ok ? "" : ToLine(reply);
        step_ = Step::Over;
        return;
    }
    wrong_ = tries_->WrongInBook(ok);
    if (!ok && reply["error"]["number"] != 7)
        wrong_ += "told as " + ToLine(reply);
    step_ = ok ? Step::Command : Step::LookAgain;
}

void TriedRequest::JudgeNext(const Json& reply)
{
    if (reply["ok"] == false)
        wrong_ += "next command: " + ToLine(reply);
    const auto& lines = books_.Tables().lines;
    if (std::none_of(lines.begin(), lines.end(), [](const std::string& line) {
            return line.find("Next one") != std::string::npos;
        }))
        wrong_ += "next command not stored";
    step_ = Step::Over;
}

}  // namespace clb
