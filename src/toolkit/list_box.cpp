#include "toolkit/list_box.h"

#include "system/failure.h"

#include <algorithm>

namespace toolkit {

std::int16_t ListBox::listCount() const {
    return static_cast<std::int16_t>(std::min<std::size_t>(items_.size(), INT16_MAX));
}

const std::string& ListBox::list(std::int16_t index) const { return items_[checked(index)]; }

void ListBox::setList(std::int16_t index, const std::string& text) { items_[checked(index)] = text; }

std::size_t ListBox::checked(std::int16_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return static_cast<std::size_t>(index);
}

void ListBox::load() {
    HiddenControl::load();
    items_.clear();
}

} // namespace toolkit
