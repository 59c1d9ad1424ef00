#include "cli/ConsolePorts.h"

#include "cli/Table.h"

#include <filesystem>
#include <ostream>

namespace clb {
namespace {

std::string FirstLines(const std::string& text, int count)
{
    std::size_t end = 0;
    for (int line = 0; line < count && end != std::string::npos; ++line)
        end = text.find('\n', line == 0 ? 0 : end + 1);
    return text.substr(0, end);
}

}  // namespace

BoxAnswer ConsoleMessages::Show(const std::string& text, std::int32_t style, const std::string&)
{
    const std::int32_t icon = box_style::Icon(style);
    refused_ = refused_ || icon == box_style::Critical || icon == box_style::Exclamation;
    out_ << Printable(FirstLines(text, 2)) << '\n';
    return box_style::Buttons(style) == box_style::YesNo ? BoxAnswer::No : BoxAnswer::OK;
}

std::optional<FileChoice> ConsoleFileDialog::Ask(const FileQuestion& question)
{
    if (path_.empty())
        return std::nullopt;
    return FileChoice{path_, std::filesystem::path(path_).parent_path().string(),
                      question.filterIndex, question.flags};
}

}  // namespace clb
