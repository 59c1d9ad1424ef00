#include "app/frmAbout.h"

#include "base/Product.h"
#include "data/SchemaVersion.h"
#include "ports/IShell.h"

namespace clb {
namespace {

std::string LaterSchema(std::int16_t version)
{
    return "Your data file has the schema version " + std::to_string(version) +
           " of a later program. This one knows version " + std::to_string(kSchemaVersion) +
           " and uses the file as it is.";
}

}  // namespace

frmAbout::frmAbout(IModalHost& host, IShell& shell, std::int16_t schemaVersion)
    : host_(host),
      form_("frmAbout", std::string("About ") + product::kTitle),
      picAppIcon("picAppIcon"),
      lblAppName("lblAppName", product::TitleAndVersion()),
      lblLegal("lblLegal", product::kLegalNotice),
      lblSchema("lblSchema", LaterSchema(schemaVersion)),
      lblWebSite("lblWebSite", product::kHomePage),
      cmdOK("cmdOK", "OK")
{
    for (Control* control :
         std::initializer_list<Control*>{&picAppIcon, &lblAppName, &lblLegal, &lblWebSite, &cmdOK})
        form_.Add(*control);
    if (schemaVersion > kSchemaVersion)
        form_.Add(lblSchema);
    form_.DefaultButton(cmdOK);
    form_.CancelButton(cmdOK);
    cmdOK.Click().connect([this] { form_.Hide(); });
    lblWebSite.Click().connect([&shell] { shell.Open(product::kHomePage); });
}

void frmAbout::ShowDialog()
{
    form_.Focus(cmdOK);
    form_.ShowModal(host_);
}

}  // namespace clb
