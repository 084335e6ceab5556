#include "system/win32/canvas.h"

#include "system/win32/pictures.h"

#include <utility>

namespace sys::win32 {

CanvasWindow::CanvasWindow(Events& events, TwipsPerPixel scale, Color backColor)
    : NativeWindow(scale), events_(events), backBrush_(CreateSolidBrush(toNative(backColor))) {}

void CanvasWindow::create(const char* windowClass, const char* caption, DWORD style, DWORD extendedStyle,
                          const PixelRect& place, HWND parent) {
    adopt(CreateWindowExA(extendedStyle, windowClass, caption, style | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                          place.left, place.top, place.width(), place.height(), parent, nullptr,
                          GetModuleHandleA(nullptr), nullptr));
    RECT client{};
    GetClientRect(native(), &client);
    size_ = {client.right, client.bottom};
}

void CanvasWindow::setBackColor(Color color) {
    backBrush_.reset(CreateSolidBrush(toNative(color)));
    clear();
}

void CanvasWindow::clear() {
    blank_ = true;
    markChanged(wholeOf(size_));
}

void CanvasWindow::paint(const Picture& picture, const Area& target, const Area& source) {
    const auto& paintablePicture = static_cast<const PaintablePicture&>(picture);
    const Block block = paintablePicture.blockOf(target, source, scale());
    const PixelRect visible = intersection(block.target, wholeOf(size_));
    if (block.source.empty() || visible.empty()) {
        return;
    }
    MemoryBitmap* bitmap = paintable();
    if (bitmap == nullptr) {
        return;
    }
    paintablePicture.paintOn(*bitmap, block);
    markChanged(visible);
}

void CanvasWindow::present() {
    const PixelRect area = intersection(std::exchange(changed_, {}), wholeOf(size_));
    if (area.empty()) {
        return;
    }
    copyTo(WindowDc(native()).get(), area);
}

void CanvasWindow::repair() {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(native(), &paint);
    const RECT& lost = paint.rcPaint;
    copyTo(dc, {lost.left, lost.top, lost.right, lost.bottom});
    EndPaint(native(), &paint);
}

void CanvasWindow::resized(Size size) {
    if (size == size_) {
        return;
    }
    size_ = size;
    if (blank_ || !surface_) {
        return;
    }
    const std::unique_ptr<MemoryBitmap> former = std::move(surface_);
    blank_ = true;
    if (MemoryBitmap* bitmap = paintable()) {
        BitBlt(bitmap->dc(), 0, 0, former->size().width, former->size().height, former->dc(), 0, 0, SRCCOPY);
    }
}

MemoryBitmap* CanvasWindow::paintable() {
    if (!blank_) {
        return surface_.get();
    }
    if (!surface_ || surface_->size() != size_) {
        surface_.reset(); // first, so that both never take memory at once
        if (!wholeOf(size_).empty()) {
            surface_ = MemoryBitmap::make(size_, MemoryBitmap::surfaceBits);
        }
    }
    if (!surface_) {
        return nullptr;
    }
    fill(surface_->dc(), wholeOf(size_));
    blank_ = false;
    return surface_.get();
}

void CanvasWindow::copyTo(HDC window, const PixelRect& area) const {
    if (blank_) {
        fill(window, area);
    } else {
        BitBlt(window, area.left, area.top, area.width(), area.height(), surface_->dc(), area.left, area.top,
               SRCCOPY);
    }
}

void CanvasWindow::markChanged(const PixelRect& area) {
    changed_ = changed_.empty() ? area : bounding(changed_, area);
}

void CanvasWindow::fill(HDC dc, const PixelRect& area) const {
    const RECT rect{area.left, area.top, area.right, area.bottom};
    FillRect(dc, &rect, backBrush_.get());
}

} // namespace sys::win32
