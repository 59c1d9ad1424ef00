#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace clb {
namespace {

/// More than any command can use; short enough to be read.
constexpr std::int64_t kMost = 1'000'000'000'000;

/// Marks an argument after "--" that begins with a dash, so that it is not taken for an option.
constexpr char kMark = '\x01';

/// Adds an option or, if the name has no dashes, an argument, which may have the mark.
template <typename T>
Argument Add(CLI::App& command, const std::string& name, T& value, const std::string& help)
{
    CLI::Option& option = *command.add_option(name, value, help);
    if (!name.starts_with('-'))
        option.transform([](const std::string& text) {
            return text.starts_with(std::string{kMark, '-'}) ? text.substr(1) : text;
        });
    return Argument(option);
}

}  // namespace

std::vector<std::string> LastFirst(int argc, const char* const* argv)
{
    std::vector<std::string> arguments;
    bool marked = false;
    for (int at = 1; at < argc; ++at) {
        const std::string argument = argv[at];
        if (marked && argument.starts_with('-'))
            arguments.push_back(kMark + argument);
        else if (argument != "--")
            arguments.push_back(argument);
        marked = marked || argument == "--";
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

Argument& Argument::Required()
{
    option_->required();
    return *this;
}

Argument& Argument::Placeholder(const std::string& name)
{
    option_->type_name(name);
    return *this;
}

Argument& Argument::ShowDefault()
{
    option_->capture_default_str();
    return *this;
}

Argument& Argument::Repeatable()
{
    option_->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return *this;
}

Argument& Argument::Check(const TextCheck& check)
{
    option_->check(check.fault, check.form);
    return *this;
}

Argument& Argument::OneOf(const std::vector<std::string>& texts)
{
    option_->check(CLI::IsMember(texts));
    return *this;
}

Argument& Argument::Positive()
{
    return Check({[](const std::string& text) {
                      std::int64_t number = 0;
                      const char* const end = text.data() + text.size();
                      const auto [rest, error] = std::from_chars(text.data(), end, number);
                      return error == std::errc() && rest == end && number > 0 && number <= kMost
                                 ? std::string()
                                 : "\"" + text + "\" is not a whole number from 1 to " +
                                       std::to_string(kMost);
                  },
                  "POSITIVE"});
}

Argument& Argument::Between(std::int32_t least, std::int32_t most)
{
    option_->check(CLI::Range(least, most));
    return *this;
}

Argument& Argument::Needs(const Argument& other)
{
    option_->needs(other.option_);
    return *this;
}

Argument& Argument::Excludes(const Argument& other)
{
    option_->excludes(other.option_);
    return *this;
}

Command::Command(CLI::App& app, const std::string& name, const std::string& description)
    : command_(app.add_subcommand(name, description))
{
}

Argument Command::Take(const std::string& name, std::string& value, const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::optional<std::string>& value,
                       const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::int32_t& value, const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::optional<std::int32_t>& value,
                       const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::int64_t& value, const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::optional<std::int64_t>& value,
                       const std::string& help)
{
    return Add(*command_, name, value, help);
}

Argument Command::Take(const std::string& name, std::vector<std::string>& values,
                       const std::string& help)
{
    return Add(*command_, name, values, help);
}

void Command::Flag(const std::string& name, bool& value, const std::string& help)
{
    command_->add_flag(name, value, help);
}

void Command::Run(std::function<void()> action)
{
    command_->callback(std::move(action));
}

}  // namespace clb
