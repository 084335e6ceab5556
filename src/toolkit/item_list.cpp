#include "toolkit/item_list.h"

#include "toolkit/application.h"

#include <algorithm>
#include <utility>

namespace toolkit {

std::int16_t ItemList::listCount() const {
    return static_cast<std::int16_t>(std::min<std::size_t>(items_.size(), INT16_MAX));
}

void ItemList::setListIndex(std::int16_t index) {
    if (index < -1 || index >= listCount()) {
        throw Failure(FailureCode::invalidPropertyValue);
    }
    if (index == selected_) {
        return;
    }
    selected_ = index;
    if (hasWindow()) {
        nativeList().select(index);
    }
    if (index >= 0) {
        chosen(true);
    }
}

void ItemList::refresh() {
    if (hasWindow()) {
        nativeList().refresh();
    }
}

void ItemList::chosen(bool /*changed*/) { click.raise(); }

void ItemList::userSelected(int index) {
    if (index >= 0 && index < listCount()) {
        const bool changed = index != selected_;
        selected_ = static_cast<std::int16_t>(index);
        chosen(changed);
    }
}

void ItemList::userActivated(int index) {
    if (index >= 0 && index < listCount()) {
        dblClick.raise();
    }
}

void ItemList::load() {
    Control::load();
    items_.clear();
    selected_ = -1;
}

void ItemList::assumeItems(std::vector<sys::ListItem> items, std::int16_t selected) {
    items_ = std::move(items);
    selected_ = selected;
    showItems();
}

void ItemList::showBeginning(const std::vector<sys::ListItem>& items) {
    if (hasWindow()) {
        nativeList().setItems(items);
    }
    refresh();
}

void ItemList::showItems() {
    if (hasWindow()) {
        nativeList().setItems(items_);
        nativeList().select(selected_);
    }
}

void ItemList::appendItem(const std::string& text) {
    items_.push_back({.text = text});
    if (hasWindow()) {
        nativeList().addItem(items_.back());
    }
}

void ItemList::replaceItem(std::int16_t index, const std::string& text) {
    items_[checked(index)].text = text;
    showItems();
}

void ItemList::eraseItem(std::int16_t index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(checked(index)));
    selected_ = -1;
    showItems();
}

std::size_t ItemList::checked(std::int16_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return static_cast<std::size_t>(index);
}

std::unique_ptr<sys::Window> ItemList::makeWindow() {
    auto made = Application::current().system().createList(container().nativeWindow(), style_);
    // Placed first: a list that grows to its items' number would have them placed anew.
    made->place(area());
    made->setItems(items_);
    made->select(selected_);
    return made;
}

} // namespace toolkit
