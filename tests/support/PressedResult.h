// Works the result bar in a test.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "controls/ResultBar.h"

namespace clb {

/// The captions of the bar's buttons with "|" between them.
inline std::string Captions(const ResultBar& bar)
{
    std::string captions;
    for (const ResultBar::Action& action : bar.Actions())
        captions += (captions.empty() ? "" : "|") + action.caption;
    return captions;
}

/// Presses the button with this caption.
inline void PressResult(ResultBar& bar, const std::string& caption)
{
    for (std::size_t button = 0; button < bar.Actions().size(); ++button)
        if (bar.Actions()[button].caption == caption)
            return bar.Press(button);
    ADD_FAILURE() << "no button " << caption << " beside \"" << bar.Text() << "\"";
}

}  // namespace clb
