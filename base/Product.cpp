#include "base/Product.h"

namespace clb::product {

std::string TitleAndVersion()
{
    return std::string(kTitle) + " " CLB_VERSION;
}

}  // namespace clb::product
