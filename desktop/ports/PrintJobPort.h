#pragma once
#include "ports/IPrintJob.h"

namespace clb {

/// Prints by a process of its own: this program started with --print. While that shows its dialogs
/// the window repaints but takes no input.
class PrintJobPort : public IPrintJob {
public:
    void Print(const std::string& file) override;
};

}  // namespace clb
