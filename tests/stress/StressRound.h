// One round of the stress test: several programs change one book at once, then everything is
// compared.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/stress/ClbProcess.h"
#include "tests/stress/RawBook.h"
#include "tests/stress/Session.h"
#include "tests/stress/StressBook.h"

namespace clb {

/// Starts the programs, waits for them, and compares what they reported with the book.
class StressRound {
public:
    /// `book` is the program folder. `name` must differ between rounds.
    StressRound(const TempFolder& files, const std::string& book, Session& session,
                std::string name, std::mt19937& random);

    /// Lets the programs run one after the other.
    void InTurn(bool inTurn) { inTurn_ = inTurn; }
    void Run();
    /// What is wrong with the book or with a report; empty if nothing is.
    [[nodiscard]] const std::string& Faults() const { return faults_; }
    /// Whether a program waited for the file longer than programs must wait. Nothing was compared.
    [[nodiscard]] bool Overloaded() const { return overloaded_; }
    /// All commands and requests of the programs, and their answers.
    [[nodiscard]] std::string Story() const;

private:
    struct Import {
        const StressAccount* account = nullptr;
        std::vector<StressRow> rows;
        std::string file;
        ClbProcess* process = nullptr;
    };
    struct Command {
        std::int32_t number = 0;
        std::int32_t piece = 0;
        bool split = false;  ///< false: a move
        std::int64_t amount = 0;
        std::int32_t direction = 0;
        ClbProcess* process = nullptr;
    };
    struct Target {
        std::int32_t number = 0;
        std::int32_t piece = 0;
    };

    int Random(int least, int most);
    bool OneIn(int cases) { return Random(1, cases) == 1; }
    void Pause(int mostMilliseconds);
    void Fault(const std::string& text) { faults_ += text + "\n"; }

    void ChooseTargets();
    Target AnyTarget();
    std::vector<StressRow> NewRows(const std::string& file);
    void PlanImports();
    void PlanCommands();
    [[nodiscard]] std::vector<std::string> Words(const Command& command) const;
    void Start();
    void UseSession();
    void Act(Target target);

    bool FileWasLocked();
    void Compare();
    void CompareImport(const Import& import, std::set<std::string>& fitids);
    void CompareImports();
    void ReadReport(const Command& command);
    void CompareTransaction(std::int32_t number, const Transaction& after);
    std::string OriginOfNew(const Transaction& transaction);
    void CompareTransactions();
    void CompareShown();
    void AskForCheck();

    const TempFolder& files_;
    const std::string book_;
    Session& session_;
    const std::string name_;
    std::mt19937& random_;
    RawBook raw_;

    std::map<std::int32_t, Transaction> before_;
    std::map<std::int32_t, Transaction> after_;
    const StressAccount* shownAccount_ = nullptr;
    Month shownMonth_;
    std::vector<Target> targets_;
    std::vector<Import> imports_;
    std::vector<Command> commands_;
    std::vector<std::unique_ptr<ClbProcess>> processes_;

    std::map<std::int32_t, std::vector<ReportedStep>> steps_;
    std::map<std::string, std::int64_t> added_;   ///< by the session: description and amount
    std::map<std::string, StressRow> statement_;  ///< imported: by account, blank, FITID
    int newRows_ = 0;
    std::string sessionStory_;
    bool sessionLocked_ = false;
    std::string faults_;
    bool overloaded_ = false;
    bool inTurn_ = false;
};

}  // namespace clb
