// The two objects that live as long as the main window.
#pragma once
#include <memory>

#include "data/clsDatabase.h"
#include "views/clsView.h"

namespace clb {

/// The view and the data store. The view is released first.
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
