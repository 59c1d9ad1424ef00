#include "desktop/forms/ListBinder.h"

#include "desktop/input/UserEvents.h"
#include "desktop/look/TextConvert.h"

namespace clb {

ListBinder::ListBinder(ListBox& list, UserEvents& events, QWidget* parent)
    : QComboBox(parent), list_(list)
{
    connect(this, &QComboBox::activated, this, [this, &events](int index) {
        events.Run([&] { list_.Index(index); });
        Sync();
    });
    list_.Changed().connect(sigc::track_obj([this] { Sync(); }, *this));
    Sync();
}

void ListBinder::Sync()
{
    bool same = count() == static_cast<int>(list_.Items().size());
    for (int index = 0; same && index < count(); ++index)
        same = itemText(index) == ToQString(list_.Items()[static_cast<std::size_t>(index)].text);
    if (!same) {
        clear();
        for (const ListBox::Item& item : list_.Items())
            addItem(ToQString(item.text));
    }
    setCurrentIndex(list_.Index());
    setEnabled(list_.Enabled());
}

}  // namespace clb
