#pragma once
#include <string>
#include <vector>

namespace clb {

/// What a second start asks of the running program.
struct StartRequest {
    std::vector<std::string> files;  ///< statements to import, absolute paths
    std::string activation;          ///< the desktop's token that lets a window come to the front
};

/// Makes one program of all starts over the same program folder: the first start listens, a later
/// one hands over what it was asked for. They meet at a socket in a folder of the user alone.
class RunningProgram {
public:
    /// folder is the program folder. Nothing happens yet.
    explicit RunningProgram(const std::string& folder);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// Whether this is the first start; it listens from now on. Where no meeting place can be made
    /// every start is a first one.
    bool BecomeFirst();
    /// Hands the request to the first start, waiting for its answer for some seconds at most. False
    /// when there is none or it does not answer.
    bool HandOver(const StartRequest& request) const;

    /// Becomes readable when a request has come; -1 when nothing listens.
    int Descriptor() const { return listening_; }
    /// The requests that have come, answered. What is no request is passed over.
    std::vector<StartRequest> Requests();

private:
    std::string socket_;  ///< path; empty when there is no place for it
    int lock_ = -1;
    int listening_ = -1;
};

}  // namespace clb
