#include "app/clsOpenSave.h"

#include <algorithm>

#include "base/Text.h"

namespace clb {

std::string clsOpenSave::Filter() const
{
    std::string pairs = filter_;
    std::replace(pairs.begin(), pairs.end(), '\0', '|');
    return pairs;
}

void clsOpenSave::Filter(const std::string& pairs)
{
    filter_ = pairs;
    if (!filter_.ends_with('|'))
        filter_ += '|';
    std::replace(filter_.begin(), filter_.end(), '|', '\0');
}

bool clsOpenSave::GetFileName()
{
    return Ask(false);
}
bool clsOpenSave::ShowSave()
{
    return Ask(true);
}

bool clsOpenSave::Ask(bool save)
{
    FileQuestion question;
    question.save = save;
    question.filter = Filter();
    question.filterIndex = FilterIndex;
    question.flags = Flags;
    question.title = DialogTitle;
    question.folder = InitDir;
    question.name = FileName;
    question.defaultExtension = DefaultExt;
    const auto choice = dialogs_.Ask(question);
    if (!choice)
        return false;

    Flags = choice->flags;
    FileName = choice->path;
    const std::size_t slash = FileName.find_last_of('/');
    FileTitle = Trim(FileName.substr(slash == std::string::npos ? 0 : slash + 1));
    const std::size_t period = FileTitle.find_last_of('.');
    FileExt = period == std::string::npos ? std::string() : FileTitle.substr(period + 1);
    InitDir = Trim(choice->folder);
    FilterIndex = choice->filterIndex;
    return true;
}

}  // namespace clb
