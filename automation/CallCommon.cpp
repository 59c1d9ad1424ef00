#include "app/clsIni.h"
#include "app/clsOpenSave.h"
#include "automation/CallTable.h"
#include "automation/Request.h"
#include "base/modCommon.h"

namespace clb {
namespace {

using Controller = frmController&;
using Arguments = CallArguments&;

clsIni Settings(Controller c)
{
    clsIni ini;
    ini.INIFile(c.SettingsFile());
    return ini;
}

struct TextProperty {
    const char* name;
    std::string clsOpenSave::*member;
};
constexpr TextProperty textProperties[] = {
    {"FileExt", &clsOpenSave::FileExt},         {"InitDir", &clsOpenSave::InitDir},
    {"FileTitle", &clsOpenSave::FileTitle},     {"FileName", &clsOpenSave::FileName},
    {"DialogTitle", &clsOpenSave::DialogTitle}, {"DefaultExt", &clsOpenSave::DefaultExt},
};

struct LongProperty {
    const char* name;
    std::int32_t clsOpenSave::*member;
};
constexpr LongProperty longProperties[] = {
    {"hWnd", &clsOpenSave::hWnd},
    {"MaxFileSize", &clsOpenSave::MaxFileSize},
    {"Flags", &clsOpenSave::Flags},
    {"FilterIndex", &clsOpenSave::FilterIndex},
};

void SetProperty(clsOpenSave& dialog, const std::string& name, const Request& values)
{
    if (name == "Filter")
        return dialog.Filter(values.Text("Filter"));
    for (const TextProperty& property : textProperties)
        if (name == property.name) {
            dialog.*property.member = values.Text(property.name);
            return;
        }
    for (const LongProperty& property : longProperties)
        if (name == property.name) {
            dialog.*property.member = values.Long(property.name);
            return;
        }
    throw RequestError("Unknown property: " + name);
}

Json Properties(const clsOpenSave& dialog)
{
    Json values{{"Filter", dialog.Filter()}};
    for (const TextProperty& property : textProperties)
        values[property.name] = dialog.*property.member;
    for (const LongProperty& property : longProperties)
        values[property.name] = dialog.*property.member;
    return values;
}

Json OpenSave(Controller c, Arguments a)
{
    clsOpenSave dialog(c.Outside().files);
    for (const auto& property : a.Object(1).items())
        SetProperty(dialog, property.key(), Request(a.Object(1)));
    if (a.Text(0) != "open" && a.Text(0) != "save")
        throw RequestError("Wrong argument: argument 1 must be \"open\" or \"save\"");
    Json result{{"chosen", a.Text(0) == "open" ? dialog.GetFileName() : dialog.ShowSave()}};
    result.update(Properties(dialog));
    return result;
}

Json Filter(Controller c, Arguments a)
{
    clsOpenSave dialog(c.Outside().files);
    dialog.Filter(a.Text(0));
    return dialog.Filter();
}

}  // namespace

const OperationTable& CommonOperations()
{
    static const OperationTable operations = {
        {"IniWriteString",
         {"ttt",
          [](Controller c, Arguments a) -> Json {
              Settings(c).WriteString(a.Text(0), a.Text(1), a.Text(2));
              return nullptr;
          }}},
        {"IniWriteLong",
         {"ttl",
          [](Controller c, Arguments a) -> Json {
              Settings(c).WriteLong(a.Text(0), a.Text(1), a.Long(2));
              return nullptr;
          }}},
        {"IniGetString",
         {"tt|t",
          [](Controller c, Arguments a) -> Json {
              return Settings(c).GetString(a.Text(0), a.Text(1), a.Text(2));
          }}},
        {"IniGetLong",
         {"ttl",
          [](Controller c, Arguments a) -> Json {
              return Settings(c).GetLong(a.Text(0), a.Text(1), a.Long(2));
          }}},
        {"OpenSave", {"to", OpenSave}},
        {"Filter", {"t", Filter}},
        {"TimeZoneOffset",
         {"",
          [](Controller c, Arguments) -> Json {
              return modCommon::TimeZoneOffset(c.Outside().clock.Zone());
          }}},
        {"Max",
         {"ll",
          [](Controller, Arguments a) -> Json { return modCommon::Max(a.Long(0), a.Long(1)); }}},
        {"Min",
         {"ll",
          [](Controller, Arguments a) -> Json { return modCommon::Min(a.Long(0), a.Long(1)); }}},
    };
    return operations;
}

}  // namespace clb
