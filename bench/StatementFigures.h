#pragma once
#include <string>
#include <vector>

#include "bench/Figure.h"

namespace clb {

class WorkFolder;

/// QIF files in, for the first and for a second time, and exported statements out, with what the
/// export takes of memory.
std::vector<Figure> MeasureQif(const WorkFolder& work, int rounds);
std::vector<Figure> MeasureExport(const WorkFolder& work, int rounds);

/// One account exported by the program and by the bare storage, as whole processes. Throws
/// std::runtime_error where the files differ.
struct Exports {
    Cost ours;
    Cost reference;
};
Exports MeasureExports(const WorkFolder& work, const std::string& folder,
                       const std::string& account);

}  // namespace clb
