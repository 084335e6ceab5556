// The menu of a dialog: items in its bar, and items in those.
#pragma once

#include "toolkit/control.h"

#include <string>
#include <vector>

namespace toolkit {

class MenuItem : public Component {
public:
    /// An item of the bar; "&" stands before the letter that chooses it.
    MenuItem(Form& form, std::string caption);
    /// An item of a menu that `parent` opens.
    MenuItem(MenuItem& parent, std::string caption);

    Event<> click; // of an item that opens no menu

    const std::string& caption() const { return caption_; }

private:
    friend class Form;
    void load() override {}
    void unload() override {}

    /// The entries for those of `items` that stand in `parent`, with all that stands in them.
    static std::vector<sys::MenuEntry> entriesOf(const std::vector<MenuItem*>& items, const MenuItem* parent);

    std::string caption_;
    const MenuItem* parent_ = nullptr; // null: it stands in the bar
};

} // namespace toolkit
