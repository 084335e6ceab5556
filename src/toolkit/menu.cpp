#include "toolkit/menu.h"

#include "toolkit/form.h"

#include <utility>

namespace toolkit {

MenuItem::MenuItem(Form& form, std::string caption) : Component(form), caption_(std::move(caption)) {
    form.menuItems_.push_back(this);
}

MenuItem::MenuItem(MenuItem& parent, std::string caption) : MenuItem(parent.form(), std::move(caption)) {
    parent_ = &parent;
}

std::vector<sys::MenuEntry> MenuItem::entriesOf(const std::vector<MenuItem*>& items, const MenuItem* parent) {
    std::vector<sys::MenuEntry> entries;
    int command = 0;
    for (const MenuItem* item : items) {
        ++command;
        if (item->parent_ == parent) {
            entries.push_back({item->caption_, command, entriesOf(items, item)});
        }
    }
    return entries;
}

} // namespace toolkit
