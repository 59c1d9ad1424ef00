// Sends a request to the driven program while allocations fail.
#pragma once
#include <string>
#include <vector>

#include "json/ValueJson.h"
#include "tests/allocation/Tries.h"

namespace clb {

/// Sends a request to the driven program while allocations of the storage fail. After each failure
/// the program must go on: it must show what the file holds, and carry out another command.
class TriedRequest {
public:
    /// shown: requests that bring up the view. made: requests that come before the tried one, such
    /// as typing into a row.
    TriedRequest(BookFolder& books, std::vector<Json> shown, std::vector<Json> made, Json request);

    /// Tries all allocations. Returns a list of what was wrong.
    std::vector<std::string> Run();

private:
    /// Sets the next line for the program. Returns false at the end.
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
