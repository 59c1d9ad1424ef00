// Describes the program's commands and their arguments.
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

// The library that parses the command line takes long to compile. Only CommandLine.cpp and main.cpp
// include it; the commands use these classes.

/// The arguments of a process, without its name, in the order in which the library takes them. What
/// follows "--" is never an option. The library itself takes no further arguments after it if the
/// command has one already.
[[nodiscard]] std::vector<std::string> LastFirst(int argc, const char* const* argv);

/// A condition on the text of an argument. It is checked while the command line is parsed.
struct TextCheck {
    /// Returns what is wrong with the text, or an empty text if it is valid.
    std::function<std::string(const std::string& text)> fault;
    std::string form;  ///< what a valid text looks like, for the help; may be empty
};

/// An option or argument of a command, to be described further. It is a handle; the command line
/// owns the argument itself.
class Argument {
public:
    explicit Argument(CLI::Option& option) : option_(&option) {}

    Argument& Required();
    /// The name of the value in the help. The default is its type.
    Argument& Placeholder(const std::string& name);
    /// The help shows the current value as the default.
    Argument& ShowDefault();
    /// It may be given several times, with one text each time.
    Argument& Repeatable();

    Argument& Check(const TextCheck& check);
    Argument& OneOf(const std::vector<std::string>& texts);
    /// A whole number from 1 to 1,000,000,000,000.
    Argument& Positive();
    /// Both ends are allowed.
    Argument& Between(std::int32_t least, std::int32_t most);

    /// It may be given only together with the other.
    Argument& Needs(const Argument& other);
    /// It may be given only without the other.
    Argument& Excludes(const Argument& other);

private:
    CLI::Option* option_;
};

/// A command of the program, such as "import". It is a handle like Argument.
class Command {
public:
    /// Adds the command to the command line.
    Command(CLI::App& app, const std::string& name, const std::string& description);

    // Each adds an option ("--month") or, if the name has no dashes, a positional argument. The
    // value is written if the argument is given and otherwise keeps its content. It is borrowed
    // until the command line is parsed.
    Argument Take(const std::string& name, std::string& value, const std::string& help);
    Argument Take(const std::string& name, std::optional<std::string>& value,
                  const std::string& help);
    Argument Take(const std::string& name, std::int32_t& value, const std::string& help);
    Argument Take(const std::string& name, std::optional<std::int32_t>& value,
                  const std::string& help);
    Argument Take(const std::string& name, std::int64_t& value, const std::string& help);
    Argument Take(const std::string& name, std::optional<std::int64_t>& value,
                  const std::string& help);
    Argument Take(const std::string& name, std::vector<std::string>& values,
                  const std::string& help);
    /// Adds an option without a text, which sets the value to true.
    void Flag(const std::string& name, bool& value, const std::string& help);

    /// The action to run if this command is called. It runs while the command line is parsed, after
    /// all values are written.
    void Run(std::function<void()> action);

private:
    CLI::App* command_;
};

}  // namespace clb
