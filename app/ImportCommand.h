// File > Import.
#pragma once
#include <string>
#include <vector>

namespace clb {

class frmController;

/// Asks for statement files and imports them; under automation for one file of the kinds that
/// modImport::ImportFile takes. Throws as ImportStatements and modImport::ImportFile.
void ImportCommand(frmController& window);
/// Imports files of any kind of statement one after the other, each as a step of its own, and says
/// in the result bar what came in. If nothing did, a message says why, unless the user has
/// cancelled. A file that cannot be read counts as refused. Throws EngineError; the files before
/// that are imported then.
void ImportStatements(frmController& window, const std::vector<std::string>& paths);

}  // namespace clb
