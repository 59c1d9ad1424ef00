#include "desktop/start/DemoBook.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "data/DemoHousehold.h"
#include "desktop/look/TextConvert.h"
#include "files/Folders.h"
#include "platform/ProgramFolder.h"

namespace clb {
namespace fs = std::filesystem;
namespace {

constexpr const char* kLock = "clb.lock";

[[noreturn]] void RefuseLink(const std::string& path)
{
    throw PortError(errors::PathAccess, "The demo cannot be shown: " + path +
                                            " is a link. Remove it, then start the demo again.");
}

void RemoveAllBut(const fs::path& folder, const std::string& kept)
{
    for (const std::string& name : NamesIn(folder.string())) {
        if (name == "." || name == ".." || name == kept)
            continue;
        std::error_code failed;
        fs::remove_all(folder / name, failed);
        if (failed)
            throw PortError(errors::PathAccess,
                            "Cannot remove " + (folder / name).string() + ": " + failed.message());
    }
}

/// As the option --now has it: "YYYY-MM-DDThh:mm:ss".
QString MomentText(const Date& moment)
{
    const QString text = ToQString(moment.ToIso());
    const bool midnight = !text.contains(u' ');
    return midnight ? text + QStringLiteral("T00:00:00") : QString(text).replace(u' ', u'T');
}

}  // namespace

std::string DemoFolder()
{
    return ToUtf8(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)) +
           "/corvane-ledgerbook/demo";
}

void PrepareDemoFolder(const std::string& folder)
{
    for (const std::string& path : {folder, folder + "/db"})
        if (fs::is_symlink(path))
            RefuseLink(path);
    MakePrivateFolders(folder + "/db");
}

void RenewDemoBook(const std::string& folder, const Date& today)
{
    const std::string household = DemoDatabase(today);
    RemoveAllBut(folder, "db");
    RemoveAllBut(folder + "/db", kLock);
    DeliverFolder(folder, household);
}

void OpenDemo(const std::optional<Date>& now)
{
    QStringList arguments{QStringLiteral("--demo")};
    if (now)
        arguments << QStringLiteral("--now") << MomentText(*now);
    QProcess program;
    program.setProgram(QCoreApplication::applicationFilePath());
    program.setArguments(arguments);
    program.setStandardInputFile(QProcess::nullDevice());
    if (!program.startDetached())
        throw RuntimeError(errors::PathAccess,
                           "The demo could not be started: " + ToUtf8(program.errorString()) + ".");
}

}  // namespace clb
