#include "system/simulated/machine.h"

namespace sys::simulated {

void ProgressBarWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    target.fill(clip, opaque({220, 220, 220}));
    const int done = static_cast<int>(static_cast<float>(rect().width()) * value_ / 100);
    target.fill(intersection(clip, {at.x, clip.top, at.x + done, clip.bottom}), opaque({60, 160, 80}));
}

std::unique_ptr<sys::ProgressBar> Machine::createProgressBar(Window& parent) {
    return std::make_unique<ProgressBarWindow>(screen_, screen_.find(parent.handle()));
}

} // namespace sys::simulated
