#pragma once
// Hands the request of a second start to the window that is already open.
#include <QStringList>
#include <string>
#include <vector>

#include "desktop/start/RunningProgram.h"

namespace clb {

class IncomingFiles;
class MainWindow;

/// Makes the request of this start: its files as absolute paths, and the desktop's token that lets
/// a window come to the front.
StartRequest RequestFor(const std::vector<std::string>& files);

/// Brings the window to the front and imports the files.
void Follow(const StartRequest& request, MainWindow& window, IncomingFiles& incoming);

}  // namespace clb
