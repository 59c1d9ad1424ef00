#include "base/Product.h"

namespace clb::product {

std::string TitleAndVersion()
{
    return std::string(Title) + " " CLB_VERSION;
}

}  // namespace clb::product
