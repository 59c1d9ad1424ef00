#include "cli/ConsolePorts.h"

#include <filesystem>
#include <ostream>

#include "base/Text.h"
#include "cli/Table.h"
#include "import/Messages.h"

namespace clb {
namespace {

std::string FirstLines(const std::string& text, int count)
{
    std::size_t end = 0;
    for (int line = 0; line < count && end != std::string::npos; ++line)
        end = text.find('\n', line == 0 ? 0 : end + 1);
    return text.substr(0, end);
}

/// Shortens a message. From its third line on a message contains the text of a file. The list of
/// skipped lines is printed whole, but each of its lines is cut: a line can be as long as a file.
std::string Shortened(const std::string& text)
{
    constexpr std::size_t kLongest = 200;
    if (!text.starts_with(kLinesSkipped))
        return FirstLines(text, 2);
    std::string shortened;
    for (const std::string& line : Split(text, '\n')) {
        const std::string start = Left(line, kLongest);
        shortened +=
            (shortened.empty() ? "" : "\n") + start + (start.size() < line.size() ? "..." : "");
    }
    return shortened;
}

}  // namespace

BoxAnswer ConsoleMessages::Show(const std::string& text, std::int32_t style, const std::string&)
{
    const std::int32_t icon = box_style::Icon(style);
    refused_ = refused_ || icon == box_style::Critical || icon == box_style::Exclamation;
    out_ << Printable(Shortened(text)) << '\n';
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
