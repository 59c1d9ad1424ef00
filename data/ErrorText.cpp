#include "data/ErrorText.h"

#include <new>

#include "engine/storage/EngineError.h"

namespace clb {
namespace {

const char* AdviceOn(FileTrouble trouble)
{
    switch (trouble) {
        case FileTrouble::None: break;
        case FileTrouble::Missing:
            return "Name the folder that holds your data with --home, bring a backup back with "
                   "\"clb restore\", or make a new folder with \"clb new\".";
        case FileTrouble::Folder:
            return "Move that folder away and bring a backup back with \"clb restore\".";
        case FileTrouble::Locked:
            return "Close the other program or wait until it is done, then try again.";
        case FileTrouble::ReadOnly:
            return "Allow yourself to write the file, or copy the program's folder to a place "
                   "where you may write, then try again.";
        case FileTrouble::FolderReadOnly:
            return "Allow yourself to write in that folder, or copy the program's folder to a "
                   "place where you may write, then try again.";
        case FileTrouble::Damaged:
            return "It was left as it is. Keep it, and bring a backup back with \"clb restore\".";
        case FileTrouble::Full:
            return "The file is as it was before. Make room on its disk, then try again.";
        case FileTrouble::Replaced:
            return "Nothing more is written to the file that was open. End the program and start "
                   "it again.";
        case FileTrouble::Unreadable:
            return "See whether you may read the file and whether its disk is in order, then try "
                   "again.";
    }
    return nullptr;
}

const char* AdviceOn(const std::exception& error)
{
    if (const auto* engine = dynamic_cast<const EngineError*>(&error))
        return AdviceOn(engine->Trouble());
    const auto* port = dynamic_cast<const PortError*>(&error);
    if (port && port->Number() == errors::PathAccess)
        return "Choose a folder where you may write and that has room, with --home.";
    return nullptr;
}

}  // namespace

std::string ErrorText(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return "There is not enough memory.";
    const char* const advice = AdviceOn(error);
    return advice ? std::string(error.what()) + " " + advice : error.what();
}

}  // namespace clb
