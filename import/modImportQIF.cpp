#include "import/Messages.h"
#include "import/modImport.h"

namespace clb {

void modImport::ImportQIF(const std::string& /*path*/)
{
    messages_.Show("QIF files cannot be imported yet.", box_style::Exclamation, kMessageTitle);
}

}  // namespace clb
