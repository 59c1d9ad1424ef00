#include "tests/crash/Record.h"

#include <stdexcept>

#include "base/Text.h"
#include "check/DatabaseCheck.h"
#include "check/DatabaseRepair.h"
#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "tests/crash/InProcessProgram.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

/// Bytes of a file; empty if it is missing.
std::string Bytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

Json InFolder(const Json& request, const std::string& folder)
{
    return Json::parse(Replace(ToLine(request), "%HOME%", folder));
}

void Unpack(const Moment& moment, const Sitting& sitting, const std::string& folder)
{
    std::filesystem::create_directories(folder + "/db");
    WriteBytes(folder + "/db/clb.mdb", moment.database);
    if (!moment.settings.empty())
        WriteBytes(folder + "/cvlb.ini", moment.settings);
    for (const auto& [name, bytes] : sitting.files)
        WriteBytes(folder + "/" + name, bytes);
}

MomentPtr Look(const std::string& folder, const MomentPtr& last)
{
    Moment now;
    now.database = Bytes(folder + "/db/clb.mdb");
    now.settings = Bytes(folder + "/cvlb.ini");
    if (last && now.database == last->database && now.settings == last->settings)
        return last;
    now.dump = DumpOf(folder + "/db/clb.mdb");
    now.start = last ? last->start : WithoutHistory(now.dump);
    return std::make_shared<const Moment>(std::move(now));
}

MomentPtr FirstMoment(int schemaVersion)
{
    const TempFolder folder(TempFolder::Memory());
    folder.Write("db/clb.mdb", EmptyDatabase());
    const auto run = [&folder](const std::vector<std::string>& statements) {
        Connection connection;
        connection.Open("Data Source=" + folder.Path("db/clb.mdb"));
        for (const std::string& statement : statements)
            connection.Execute(statement);
        connection.Settle();
    };
    run(SessionScript::FirstStatements());
    RepairDatabase(folder.Path(), Date::FromDays(46000));
    // The sessions begin here, so no step leads to before.
    run({"DROP TABLE CvStep", "DROP TABLE CvChange"});
    if (schemaVersion < 2)
        run(SessionScript::StatementsBackTo(schemaVersion));
    return Look(folder.Path(), nullptr);
}

std::string FindingsIn(const std::string& folder)
{
    std::string text;
    for (const Finding& finding : CheckDatabase(folder).findings)
        text += finding.kind + ": " + finding.text + "\n";
    return text.empty() ? "none" : text;
}

const std::string& FindingsOf(const Moment& moment)
{
    if (moment.findings.empty()) {
        const TempFolder folder(TempFolder::Memory());
        Unpack(moment, {}, folder.Path());
        moment.findings = FindingsIn(folder.Path());
    }
    return moment.findings;
}

const std::string& PortraitOf(const Moment& moment)
{
    if (moment.portrait.empty()) {
        const TempFolder folder(TempFolder::Memory());
        Unpack(moment, {}, folder.Path());
        InProcessProgram program(folder.Path(), "http://127.0.0.1:9");
        if (program.FirstLine()["ok"] == false)
            throw std::runtime_error("an undisturbed file does not load");
        moment.portrait = PortraitOf(program);
    }
    return moment.portrait;
}

}  // namespace clb
