// A drop-down list: texts to choose from, which can't be typed into.
#pragma once

#include "toolkit/item_list.h"

namespace toolkit {

class DropDownList : public ItemList {
public:
    DropDownList(Container& container, const Design& design)
        : ItemList(container, design, {.kind = sys::ListKind::dropDown}) {}

    void addItem(const std::string& text) { appendItem(text); }
    void clear() { assumeItems({}); }
    /// Unlike with a list box the index behind the last item is the empty text.
    std::string list(std::int16_t index) const {
        return index == listCount() ? std::string() : ItemList::list(index);
    }
};

} // namespace toolkit
