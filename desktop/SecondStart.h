#pragma once
#include <QSocketNotifier>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "platform/RunningProgram.h"

namespace clb {

class IncomingFiles;
class MainWindow;

/// The files as another process finds them.
QStringList AbsolutePaths(const std::vector<std::string>& files);

/// Asks the first start to come to the front and import the files. False when it does not answer.
bool HandOver(const RunningProgram& first, const QStringList& files);

/// Does what later starts ask for, for as long as the result lives; all are borrowed.
std::unique_ptr<QSocketNotifier> ServeLaterStarts(RunningProgram& first, MainWindow& window,
                                                  IncomingFiles& incoming);

}  // namespace clb
