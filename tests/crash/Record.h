// Records of undisturbed runs, to compare interrupted runs with.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "tests/crash/DrivenProgram.h"
#include "tests/crash/SessionScript.h"
#include "tests/crash/TableDump.h"

namespace clb {

/// A program folder between two requests of an undisturbed run.
struct Moment {
    std::string database;  ///< bytes of the file
    std::string settings;  ///< bytes of cvlb.ini
    TableDump dump;
    TableDump start;  ///< the tables that the history leads back to
    // What an undisturbed program finds and shows in it. Determined when it is first needed.
    mutable std::string findings;
    mutable std::string portrait;
};
using MomentPtr = std::shared_ptr<const Moment>;

/// One request of an undisturbed sitting, and what was stored after it.
struct RecordedRequest {
    Json request;
    std::string kind;   ///< of its action
    std::string price;  ///< of its action
    bool good = false;  ///< it was answered with "ok"
    double seconds = 0;
    MomentPtr after;
    bool writes = false;
};

/// An undisturbed sitting.
struct RecordedSitting {
    Sitting sitting;
    MomentPtr before;
    MomentPtr started;  ///< after the start, which has updated an older schema
    double startSeconds = 0;
    std::vector<RecordedRequest> requests;

    [[nodiscard]] MomentPtr Last() const
    {
        return requests.empty() ? started : requests.back().after;
    }
};

/// Replaces "%HOME%" in a request by the folder.
Json InFolder(const Json& request, const std::string& folder);
/// Puts database, settings and the statement files into an empty folder.
void Unpack(const Moment& moment, const Sitting& sitting, const std::string& folder);
/// What is in the folder now. Returns the same moment if nothing has changed. The history begins
/// where that of the last moment begins; without a last moment it begins now.
MomentPtr Look(const std::string& folder, const MomentPtr& last);

/// The database that sessions begin with, in schema version 0, 1 or 2: the rows of
/// SessionScript::FirstStatements with their balances.
MomentPtr FirstMoment(int schemaVersion);

/// One line for each finding of the program's own check: "damage: ..." and so on.
std::string FindingsIn(const std::string& folder);
/// Found with an undisturbed program, once for each moment.
const std::string& FindingsOf(const Moment& moment);
const std::string& PortraitOf(const Moment& moment);

}  // namespace clb
