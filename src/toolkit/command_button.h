// A command button, with a picture above its caption if it has one.
#pragma once

#include "toolkit/button.h"

#include <cstdint>
#include <span>
#include <string>

namespace toolkit {

struct CommandButtonDesign {
    std::string caption{};
    std::span<const std::uint8_t> icon{}; // the bytes of an icon file
    bool isDefault = false;               // Enter is a click on it
    bool isCancel = false;                // Escape is
    std::string toolTip{};                // shown while the pointer rests on it
};

class CommandButton : public Button {
public:
    CommandButton(Container& container, const Design& design, const CommandButtonDesign& button)
        : Button(container, design,
                 {sys::ButtonKind::command, button.caption, button.icon, button.isDefault, button.toolTip}),
          isDefault_(button.isDefault), isCancel_(button.isCancel) {}

    bool isDefault() const { return isDefault_; }
    bool isCancel() const { return isCancel_; }

    /// Nothing while it is hidden or disabled.
    void userClicked() override;

private:
    bool isDefault_;
    bool isCancel_;
};

} // namespace toolkit
