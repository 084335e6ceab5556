// A list box: texts that the program puts into it.
#pragma once

#include "toolkit/item_list.h"

namespace toolkit {

class ListBox : public ItemList {
public:
    ListBox(Container& container, const Design& design) : ItemList(container, design, {}) {}

    void addItem(const std::string& text) { appendItem(text); }
    void clear() { assumeItems({}); }
    /// Fails with 9 outside the list; nothing is selected then.
    void removeItem(std::int16_t index) { eraseItem(index); }
    /// Fails with 9 outside the list.
    void setList(std::int16_t index, const std::string& text) { replaceItem(index, text); }
};

} // namespace toolkit
