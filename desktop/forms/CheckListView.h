// Draws a list with check boxes.
#pragma once
#include <sigc++/trackable.h>

#include <QTreeWidget>

#include "controls/CheckList.h"

namespace clb {

class UserEvents;

/// Draws a check list: each row has a check box in the first column and its other values beside it.
class CheckListView : public QTreeWidget, public sigc::trackable {
public:
    /// Both are borrowed and outlive the view.
    CheckListView(CheckList& list, UserEvents& events, QWidget* parent = nullptr);

private:
    void Sync();
    void Ticked(QTreeWidgetItem* item);

    CheckList& list_;
    UserEvents& events_;
    bool syncing_ = false;
};

}  // namespace clb
