// What all lists share: items of which at most one is selected.
#pragma once

#include "system/controls.h"
#include "toolkit/control.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

class ItemList : public Control {
public:
    /// The count is 16 bits wide: of a longer list the first 32767 items can be reached.
    std::int16_t listCount() const;
    /// The text at a 0-based index; fails with 9 outside the list.
    const std::string& list(std::int16_t index) const { return items_[checked(index)].text; }

    /// 0-based; -1 when nothing is selected.
    std::int16_t listIndex() const { return selected_; }
    /// Another index than the present one raises `click`, inside the assignment, unless it is -1; the same
    /// raises nothing. Fails with 380 outside the list.
    void setListIndex(std::int16_t index);
    /// The text of the selected item, "" for none.
    std::string text() const { return selected_ < 0 ? std::string() : list(selected_); }

    /// Brings what it shows to the screen at once.
    void refresh();

    /// A click on an item, also on the selected one.
    void userSelected(int index);
    /// A double click on an item, or Enter.
    virtual void userActivated(int index);

protected:
    /// An item has been selected; `changed`: it wasn't before.
    virtual void chosen(bool changed);

    ItemList(Container& container, const Design& design, const sys::ListStyle& style)
        : Control(container, design), style_(style) {}

    void load() override;
    const std::vector<sys::ListItem>& items() const { return items_; }
    /// Replaces all items; raises nothing.
    void assumeItems(std::vector<sys::ListItem> items, std::int16_t selected = -1);
    /// Brings the beginning of a long list to the screen while the rest is still looked for. The items are
    /// still the former ones, which `showItems` brings back.
    void showBeginning(const std::vector<sys::ListItem>& items);
    void showItems();
    void appendItem(const std::string& text);
    void replaceItem(std::int16_t index, const std::string& text);
    /// Nothing is selected then.
    void eraseItem(std::int16_t index);

private:
    std::unique_ptr<sys::Window> makeWindow() override;
    std::size_t checked(std::int16_t index) const;
    sys::List& nativeList() { return static_cast<sys::List&>(window()); }

    sys::ListStyle style_;
    std::vector<sys::ListItem> items_;
    std::int16_t selected_ = -1;
};

} // namespace toolkit
