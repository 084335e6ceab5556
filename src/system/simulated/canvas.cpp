#include "system/simulated/canvas.h"

#include "system/simulated/pictures.h"
#include "system/simulated/stretch.h"

#include <utility>

namespace sys::simulated {

namespace {

// A larger surface isn't kept: the window then shows its back colour alone.
constexpr std::int64_t mostPixels = 100'000'000;
constexpr std::size_t mostChanges = 256;

Size surfaceSize(const PixelRect& rect) {
    const std::int64_t width = static_cast<std::int64_t>(rect.right) - rect.left;
    const std::int64_t height = static_cast<std::int64_t>(rect.bottom) - rect.top;
    if (width <= 0 || height <= 0 || width > mostPixels || width * height > mostPixels) {
        return {};
    }
    return {static_cast<int>(width), static_cast<int>(height)};
}

Bitmap resizedTo(Size size, const Bitmap& former, Pixel backColor) {
    Bitmap bitmap(size, backColor);
    bitmap.copy(former, former.bounds());
    return bitmap;
}

bool covers(const PixelRect& rect, const PixelRect& part) { return intersection(rect, part) == part; }

} // namespace

CanvasWindow::CanvasWindow(Screen& screen, WindowKind kind, WindowNode* parent, std::string text,
                           Color backColor)
    : NativeWindow(screen, kind, parent, std::move(text)), backColor_(opaque(backColor)),
      shownBackColor_(backColor_) {}

void CanvasWindow::setBackColor(Color color) {
    backColor_ = opaque(color);
    clear();
}

void CanvasWindow::clear() {
    prepare();
    painted_.fill(painted_.bounds(), backColor_);
    mark(painted_.bounds());
}

void CanvasWindow::paint(const sys::Picture& picture, const Area& target, const Area& source) {
    prepare();
    const auto& decoded = dynamic_cast<const DecodedPicture&>(picture);
    const PixelRect targetRect = toPixels(target, screen().scale());
    stretch(decoded.pixels(), sourcePixels(source, screen().scale()), painted_, targetRect);
    mark(targetRect);
}

void CanvasWindow::present() {
    prepare();
    if (changed_.empty()) {
        return;
    }
    if (presented_.size() != painted_.size()) {
        presented_ = resizedTo(painted_.size(), presented_, shownBackColor_);
    }
    shownBackColor_ = backColor_;
    const PixelRect window = screenRect();
    const PixelRect seen = visibleRect();
    std::int64_t pixels = 0;
    for (const PixelRect& rect : std::exchange(changed_, {})) {
        presented_.copy(painted_, rect);
        const PixelRect brought = intersection(seen, {window.left + rect.left, window.top + rect.top,
                                                      window.left + rect.right, window.top + rect.bottom});
        if (!brought.empty()) {
            pixels += static_cast<std::int64_t>(brought.width()) * brought.height();
        }
    }
    screen().countPresented(pixels);
}

const Bitmap& CanvasWindow::surface() {
    prepare();
    return painted_;
}

void CanvasWindow::draw(Bitmap& screen, Point at, const PixelRect& clip) const {
    screen.fill(clip, shownBackColor_);
    const PixelRect part{clip.left - at.x, clip.top - at.y, clip.right - at.x, clip.bottom - at.y};
    screen.copy(presented_, part, at);
}

void CanvasWindow::resized() {
    if (prepared_) {
        prepare();
    }
}

void CanvasWindow::prepare() {
    const Size size = surfaceSize(rect());
    if (prepared_ && size == painted_.size()) {
        return;
    }
    const Size former = painted_.size();
    painted_ = resizedTo(size, painted_, backColor_);
    prepared_ = true;
    mark({former.width, 0, size.width, size.height});
    mark({0, former.height, former.width, size.height});
    presented_ = presented_.size() == Size{} ? Bitmap{} : resizedTo(size, presented_, shownBackColor_);
}

void CanvasWindow::mark(const PixelRect& rect) {
    const PixelRect inside = intersection(rect, painted_.bounds());
    if (inside.empty() ||
        std::ranges::any_of(changed_, [&](const PixelRect& other) { return covers(other, inside); })) {
        return;
    }
    std::erase_if(changed_, [&](const PixelRect& other) { return covers(inside, other); });
    changed_.push_back(inside);
    if (changed_.size() > mostChanges) {
        PixelRect all = inside;
        for (const PixelRect& other : changed_) {
            all = bounding(all, other);
        }
        changed_ = {all};
    }
}

} // namespace sys::simulated
