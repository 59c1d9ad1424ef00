// Sends a request to the driven program while allocations fail.
#pragma once
#include <string>
#include <vector>

#include "json/ValueJson.h"
#include "tests/allocation/Tries.h"

namespace clb {

/// A request to the driven program in whose handling allocations of the storage fail. After each
/// failure the program must go on: show what the file holds, and do another command.
class TriedRequest {
public:
    /// shown: requests that bring up the view. made: what is done in it before the request, such as
    /// typing into a row.
    TriedRequest(BookFolder& books, std::vector<Json> shown, std::vector<Json> made, Json request);

    /// Tries all allocations. Returns what was wrong.
    std::vector<std::string> Run();

private:
    /// The next line for the program; nothing at the end.
    bool Give(std::string& line);
    void Take(const std::string& reply);
    void Judge(const Json& reply);
    void JudgeNext(const Json& reply);

    enum class Step { Show, Look, Make, Try, LookAgain, Command, Over };

    BookFolder& books_;
    std::vector<Json> shown_;
    std::vector<Json> made_;
    Json request_;
    Tries* tries_ = nullptr;
    Step step_ = Step::Show;
    std::size_t at_ = 0;
    bool trying_ = false;  // this is the process of a try
    bool answered_ = false;
    Json rowsBefore_;
    std::string wrong_;
};

}  // namespace clb
