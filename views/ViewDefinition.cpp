#include "views/ViewDefinition.h"

namespace clb {

extern const ViewDefinition kNetWorthView, kBudgetView, kAccountTypeView, kRegisterView,
    kHoldingsView, kLoansView;

const ViewDefinition& DefinitionOf(std::int32_t view)
{
    static constexpr ViewDefinition kNone{.view = 0, .columns = {}};
    for (const ViewDefinition* definition : {&kNetWorthView, &kBudgetView, &kAccountTypeView,
                                             &kRegisterView, &kHoldingsView, &kLoansView})
        if (definition->view == view)
            return *definition;
    return kNone;
}

}  // namespace clb
