#include "app/StatementImport.h"

#include <filesystem>

#include "app/frmController.h"

namespace clb {
namespace {

/// While it lives, the window says that it imports and takes no input.
class Importing {
public:
    Importing(frmController& window, const std::string& path)
        : window_(window), status_(window.statusBar.Panel(1))
    {
        window_.statusBar.Panel(1, "Importing " + path + "...");
        window_.window.Refresh();
        window_.window.Enabled(false);
        window_.GivenPorts().pointer.Pointer(pointer::Hourglass);
    }
    ~Importing()
    {
        window_.ProposeAccount({});
        window_.GivenPorts().pointer.Pointer(pointer::Default);
        window_.statusBar.Panel(1, status_);
        window_.window.Enabled(true);
    }
    Importing(const Importing&) = delete;
    Importing& operator=(const Importing&) = delete;

private:
    frmController& window_;
    std::string status_;
};

}  // namespace

StatementImport::StatementImport(frmController& window, IStatementAsker& asker,
                                 StatementOptions options)
    : window_(window), asker_(asker), options_(std::move(options))
{
}

const std::vector<ImportedStatement>& StatementImport::Import(const std::string& path)
{
    imported_.clear();
    window_.Steps().Begin("Import of " + std::filesystem::path(path).filename().string());
    // If another program has locked the book, the import fails here.
    window_.Data().Lock();
    const Importing importing(window_, path);
    WideImport wide(window_.Data(), window_.Import(), asker_, window_.GivenPorts().clock);
    wide.Encoding(options_.encoding);
    wide.Answers(options_.answers);
    wide.Watch(watch_);
    window_.Import().BeginTexts();
    imported_ = wide.Import(path);
    window_.Import().EndTexts();
    return imported_;
}

}  // namespace clb
