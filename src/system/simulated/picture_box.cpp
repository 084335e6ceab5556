#include "system/simulated/canvas.h"
#include "system/simulated/machine.h"

namespace sys::simulated {

std::unique_ptr<sys::Canvas> Machine::createPictureBox(Window& parent, Color backColor) {
    return std::make_unique<CanvasWindow>(screen_, WindowKind::pictureBox, screen_.find(parent.handle()), "",
                                          backColor);
}

} // namespace sys::simulated
