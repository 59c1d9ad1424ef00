#pragma once
// What a start asks of a window that is open already, and how that window follows it.
#include <QStringList>
#include <string>
#include <vector>

#include "desktop/start/RunningProgram.h"

namespace clb {

class IncomingFiles;
class MainWindow;

/// The request of this start: its files as another process finds them, and the desktop's leave to
/// bring a window to the front.
StartRequest RequestFor(const std::vector<std::string>& files);

/// Brings the window to the front and imports the files.
void Follow(const StartRequest& request, MainWindow& window, IncomingFiles& incoming);

}  // namespace clb
