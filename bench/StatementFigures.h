// Measures the import of QIF files and the export of statements.
#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"

namespace clb {

class WorkFolder;

/// Measures a first and a second import of QIF files, and the export of statements with the memory
/// that it takes.
std::vector<Figure> MeasureQif(const WorkFolder& work, int rounds);
std::vector<Figure> MeasureExport(const WorkFolder& work, int rounds);

/// Costs of exporting one account by the program and by the bare storage, as whole processes.
struct Exports {
    Cost ours;
    Cost reference;
};
/// Throws std::runtime_error if the files differ.
Exports MeasureExports(const WorkFolder& work, const std::string& folder,
                       const std::string& account);

}  // namespace clb
