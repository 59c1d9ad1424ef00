#include "app/ExportHost.h"

#include "app/clsOpenSave.h"

namespace clb {

std::string ExportHost::AskForSaveFile(std::int32_t flags, const std::string& filter,
                                       const std::string& title)
{
    clsOpenSave dialog(files_);
    dialog.Flags = flags;
    dialog.Filter(filter);
    dialog.DialogTitle = title;
    return dialog.ShowSave() ? dialog.FileName : std::string();
}

}  // namespace clb
