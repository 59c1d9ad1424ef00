// The main window as the export uses it.
#pragma once
#include <cstdint>
#include <string>

#include "export/IExportHost.h"

namespace clb {

class IFileDialog;

class ExportHost : public IExportHost {
public:
    /// Borrows the dialog, which outlives it.
    explicit ExportHost(IFileDialog& files) : files_(files) {}

    std::string AskForSaveFile(std::int32_t flags, const std::string& filter,
                               const std::string& title) override;

private:
    IFileDialog& files_;
};

}  // namespace clb
