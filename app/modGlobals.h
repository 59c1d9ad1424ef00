#pragma once
#include <memory>

#include "data/clsDatabase.h"
#include "views/clsView.h"

namespace clb {

/// The two objects that live for as long as the main window: what is shown, and the data store. The
/// view is released first.
struct modGlobals {
    std::unique_ptr<clsView> view;
    std::unique_ptr<clsDatabase> database;

    void Release()
    {
        view.reset();
        database.reset();
    }
};

}  // namespace clb
