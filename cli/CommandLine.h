#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace clb {

// Describes the program's commands to the library that reads the command line. Its templates are
// long in compiling, so only CommandLine.cpp and main.cpp see them.

/// A condition on the text of an argument, asked while the command line is parsed.
struct TextCheck {
    /// What is wrong with the text; empty when nothing is.
    std::function<std::string(const std::string& text)> fault;
    std::string form;  ///< what the text looks like, for the help; may be empty
};

/// Something that a command takes, to be described further. A handle: the argument itself is the
/// command line's.
class Argument {
public:
    explicit Argument(CLI::Option& option) : option_(&option) {}

    Argument& Required();
    /// What stands for the text in the help; its type does otherwise.
    Argument& Placeholder(const std::string& name);
    /// The help tells the value as it is now.
    Argument& ShowDefault();
    /// Each time it is given it takes one text, and it may be given again.
    Argument& Repeatable();

    Argument& Check(const TextCheck& check);
    Argument& OneOf(const std::vector<std::string>& texts);
    /// Both ends count.
    Argument& Between(std::int32_t least, std::int32_t most);

    /// It may be given only together with the other one, or only without it.
    Argument& Needs(const Argument& other);
    Argument& Excludes(const Argument& other);

private:
    CLI::Option* option_;
};

/// One command of the program, such as "import", being added to those that the command line may
/// name. A handle like Argument.
class Command {
public:
    Command(CLI::App& app, const std::string& name, const std::string& description);

    /// An option ("--month") or, without dashes, a text that is told by its place. The value is
    /// written when the argument is given and keeps what it holds else; it outlives the parsing.
    Argument Take(const std::string& name, std::string& value, const std::string& help);
    Argument Take(const std::string& name, std::optional<std::string>& value,
                  const std::string& help);
    Argument Take(const std::string& name, std::int32_t& value, const std::string& help);
    Argument Take(const std::string& name, std::optional<std::int32_t>& value,
                  const std::string& help);
    Argument Take(const std::string& name, std::vector<std::string>& values,
                  const std::string& help);
    /// An option without a text: it sets the value.
    void Flag(const std::string& name, bool& value, const std::string& help);

    /// What to do when this command was called. Runs while the command line is parsed, after all
    /// values are written.
    void Run(std::function<void()> action);

private:
    CLI::App* command_;
};

}  // namespace clb
