#include "tests/stress/StressRound.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace clb {
namespace {

/// How long the program waits for another one before it gives up.
constexpr double kPatience = 10.0;
constexpr std::size_t kTargets = 5;

}  // namespace

StressRound::StressRound(const TempFolder& files, const std::string& book, Session& session,
                         std::string name, std::mt19937& random)
    : files_(files),
      book_(book),
      session_(session),
      name_(std::move(name)),
      random_(random),
      raw_(book)
{
}

int StressRound::Random(int least, int most)
{
    return std::uniform_int_distribution<int>(least, most)(random_);
}

void StressRound::Pause(int mostMilliseconds)
{
    std::this_thread::sleep_for(std::chrono::microseconds(Random(0, mostMilliseconds * 1000)));
}

void StressRound::Run()
{
    before_ = raw_.Transactions();
    shownAccount_ = &kStressAccounts[Random(0, 1)];
    shownMonth_ = {2006, Random(1, 3)};
    session_.Show(shownAccount_->name, shownMonth_);
    ChooseTargets();
    PlanImports();
    PlanCommands();
    Start();
    UseSession();
    for (const auto& process : processes_)
        process->Wait();
    sessionStory_ = session_.TakeStory();
    if (FileWasLocked())
        return;
    after_ = raw_.Transactions();
    Compare();
}

/// Chooses a few pieces of the shown register for all programs, so that they meet.
void StressRound::ChooseTargets()
{
    for (const auto& [number, transaction] : before_)
        for (const auto& [index, piece] : transaction)
            if (piece.account == shownAccount_->number && piece.month == shownMonth_ &&
                number != before_.rbegin()->first)
                targets_.push_back({number, index});
    std::shuffle(targets_.begin(), targets_.end(), random_);
    targets_.resize(std::min(targets_.size(), kTargets));
}

StressRound::Target StressRound::AnyTarget()
{
    if (!targets_.empty() && !OneIn(4))
        return targets_[static_cast<std::size_t>(Random(0, static_cast<int>(targets_.size()) - 1))];
    auto any = before_.begin();
    std::advance(any, Random(0, static_cast<int>(before_.size()) - 1));
    return {any->first, any->second.begin()->first};
}

std::vector<StressRow> StressRound::NewRows(const std::string& file)
{
    std::vector<StressRow> rows;
    const int count = OneIn(4) ? 40 : Random(1, 8);
    rows.reserve(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n)
        rows.push_back({name_ + "-" + file + "-" + std::to_string(n),
                        std::to_string(20060000 + Random(1, 4) * 100 + Random(1, 28)),
                        std::int64_t{Random(-5000, 5000)} * 100});
    return rows;
}

void StressRound::PlanImports()
{
    const int kind = Random(1, 4);
    const StressAccount& first = kStressAccounts[Random(0, 1)];
    const StressAccount& other = kStressAccounts[&first == &kStressAccounts[0] ? 1 : 0];
    imports_ = {{&first, NewRows("a"), files_.Path(name_ + "-a.ofx"), nullptr},
                {&first, NewRows("b"), files_.Path(name_ + "-b.ofx"), nullptr}};
    if (kind == 1)
        imports_[1] = imports_[0];  // the same file
    else if (kind == 2)
        imports_[1].account = &other;
    else if (kind == 3)  // files that overlap
        std::copy_n(imports_[0].rows.begin(), (imports_[0].rows.size() + 1) / 2,
                    std::back_inserter(imports_[1].rows));
    for (const Import& import : imports_)
        files_.Write(import.file.substr(files_.Path().size() + 1),
                     StatementText(import.account->number, import.rows));
}

void StressRound::PlanCommands()
{
    for (int n = 0; n < 4; ++n) {
        const Target target = AnyTarget();
        commands_.push_back({.number = target.number,
                             .piece = target.piece,
                             .split = n < 2,
                             .amount = std::int64_t{Random(-300, 300)} * 100,
                             .direction = OneIn(2) ? 1 : -1});
    }
    if (OneIn(2))
        commands_.pop_back();
}

std::vector<std::string> StressRound::Words(const Command& command) const
{
    std::vector<std::string> words = {
        command.split ? "split" : "move", "--home", book_, "--json", "--piece",
        std::to_string(command.piece)};
    if (!command.split)
        words.insert(words.end(), {"--by", command.direction > 0 ? "+1" : "-1"});
    words.insert(words.end(), {"--", std::to_string(command.number)});
    if (command.split)
        words.push_back(AmountText(command.amount));
    return words;
}

void StressRound::Start()
{
    std::vector<std::pair<ClbProcess**, std::vector<std::string>>> starts;
    for (Import& import : imports_)
        starts.emplace_back(&import.process, std::vector<std::string>{"import", "--home", book_,
                                                                      "--json", import.file});
    for (Command& command : commands_)
        starts.emplace_back(&command.process, Words(command));
    std::shuffle(starts.begin(), starts.end(), random_);
    const bool together = OneIn(2);
    for (const auto& [process, words] : starts) {
        processes_.push_back(std::make_unique<ClbProcess>(words));
        *process = processes_.back().get();
        if (inTurn_)
            (*process)->Wait();
        else if (!together)
            Pause(20);
    }
}

void StressRound::UseSession()
{
    Pause(40);
    std::vector<Target> targets = targets_;
    targets.resize(std::min<std::size_t>(targets.size(), 4));
    for (const Target& target : targets) {
        Act(target);
        Pause(20);
    }
    steps_ = session_.TakeSteps();
    added_ = session_.TakeAdded();
    sessionLocked_ = session_.TakeLocked();
    faults_ = session_.TakeTrouble();
}

void StressRound::Act(Target target)
{
    const std::string own = name_ + "-" + std::to_string(target.number);
    const int amount = Random(-5000, 5000) * 100 + target.number % 100;
    switch (Random(1, 8)) {
        case 1:
        case 2:
            return session_.Edit(target.number, target.piece, Cell::Amount, std::to_string(amount));
        case 3:
            return session_.Edit(target.number, target.piece, Cell::Category,
                                 OneIn(2) ? "Category " + own : "Food");
        case 4: return session_.Edit(target.number, target.piece, Cell::Notes, "Note " + own);
        case 5: return session_.Move(target.number, target.piece, OneIn(2) ? 1 : -1);
        case 6: return session_.Split(target.number, target.piece, amount);
        case 7: return session_.Delete(target.number, target.piece);
        default: return session_.Add("Entered " + own, amount);
    }
}

std::string StressRound::Story() const
{
    std::string story;
    for (const auto& process : processes_)
        story += process->Story();
    return story + sessionStory_;
}

/// Only a program that has waited long may say that the file is locked.
bool StressRound::FileWasLocked()
{
    bool locked = sessionLocked_;
    double longest = 0;
    for (const auto& process : processes_) {
        locked = locked || process->Err().find("is locked by") != std::string::npos ||
                 process->Out().find("is locked by") != std::string::npos;
        longest = std::max(longest, process->Took().count());
    }
    overloaded_ = locked && longest > kPatience;
    if (locked && !overloaded_)
        Fault("a program called the file locked that no program held for long");
    return overloaded_;
}

}  // namespace clb
