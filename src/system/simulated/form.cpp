#include "system/simulated/canvas.h"
#include "system/simulated/machine.h"

namespace sys::simulated {

std::unique_ptr<sys::Canvas> Machine::createForm(const FormStyle& style) {
    requireInput();
    auto form =
        std::make_unique<CanvasWindow>(screen_, WindowKind::form, nullptr, style.caption, style.backColor);
    form->setInTaskBar(style.inTaskBar);
    if (style.dialog) {
        form->makeDialog(style.menu);
    }
    if (style.maximized) {
        const Size size = screen_.size();
        form->place({0, 0, static_cast<float>(size.width * screen_.scale().x),
                     static_cast<float>(size.height * screen_.scale().y)});
    }
    return form;
}

} // namespace sys::simulated
