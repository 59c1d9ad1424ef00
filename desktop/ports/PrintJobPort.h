// Prints in a separate process.
#pragma once
#include "ports/IPrintJob.h"

namespace clb {

/// Prints in a separate process: this program, started with --print. While that process shows its
/// dialogs, the window repaints but takes no input.
class PrintJobPort : public IPrintJob {
public:
    void Print(const std::string& file) override;
};

}  // namespace clb
