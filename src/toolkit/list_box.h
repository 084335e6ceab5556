// A list box: a list of texts.
#pragma once

#include "toolkit/control.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

class ListBox : public HiddenControl {
public:
    ListBox(Form& form, const Design& design) : HiddenControl(form, design) {}

    void addItem(const std::string& text) { items_.push_back(text); }
    void clear() { items_.clear(); }
    /// The count is 16 bits wide: of a longer list the first 32767 texts can be reached.
    std::int16_t listCount() const;
    /// The text at a 0-based index; fails with 9 outside the list.
    const std::string& list(std::int16_t index) const;
    void setList(std::int16_t index, const std::string& text);

private:
    void load() override;
    std::size_t checked(std::int16_t index) const;

    std::vector<std::string> items_;
};

} // namespace toolkit
