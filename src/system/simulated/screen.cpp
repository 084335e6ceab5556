#include "system/simulated/screen.h"

#include "system/names.h"

#include <utility>

namespace sys::simulated {

namespace {

constexpr Pixel desktop{0, 96, 96, 255};

bool isTopLevel(WindowKind kind) { return kind == WindowKind::form || kind == WindowKind::foreign; }

PixelRect moved(const PixelRect& rect, Point by) {
    return {rect.left + by.x, rect.top + by.y, rect.right + by.x, rect.bottom + by.y};
}

WindowNode* foremostAt(const std::vector<WindowNode*>& windows, Point pixel, Point origin) {
    for (WindowNode* window : windows) {
        const PixelRect rect = moved(window->rect(), origin);
        if (window->visible() && contains(rect, pixel)) {
            WindowNode* inside = foremostAt(window->children(), pixel, {rect.left, rect.top});
            return inside != nullptr ? inside : window;
        }
    }
    return nullptr;
}

} // namespace

WindowNode::WindowNode(Screen& screen, WindowKind kind, WindowNode* parent, std::string text)
    : screen_(screen), kind_(kind), text_(std::move(text)), parent_(parent) {
    id_ = screen_.attach(*this);
}

WindowNode::~WindowNode() { screen_.detach(*this); }

PixelRect WindowNode::rect() const { return toPixels(area_, screen_.scale()); }

PixelRect WindowNode::screenRect() const {
    PixelRect rect = this->rect();
    for (const WindowNode* above = parent_; above != nullptr; above = above->parent_) {
        const PixelRect outer = above->rect();
        rect = moved(rect, {outer.left, outer.top});
    }
    return rect;
}

PixelRect WindowNode::visibleRect() const {
    PixelRect rect = intersection(screenRect(), wholeOf(screen_.size()));
    for (const WindowNode* window = this; window != nullptr; window = window->parent_) {
        rect = intersection(rect, window->screenRect());
        if (!window->visible_) {
            return {};
        }
    }
    return rect;
}

void WindowNode::moveTo(const Area& area) {
    area_ = area;
    resized();
}

bool WindowNode::enabled() const { return enabled_ && (parent_ == nullptr || parent_->enabled()); }

void WindowNode::activate() { screen_.activate(*this); }

void WindowNode::setVisible(bool visible) {
    const bool appears = visible && !visible_;
    visible_ = visible;
    if (appears && kind_ == WindowKind::form) {
        screen_.activate(*this);
    } else if (visible && kind_ == WindowKind::label) {
        screen_.raise(*this);
    }
}

WindowNode* Screen::find(WindowHandle handle) const {
    const auto found = windows_.find(handle);
    return found == windows_.end() ? nullptr : found->second;
}

WindowNode* Screen::findCaption(const std::string& caption) const {
    const auto found = std::ranges::find_if(
        topLevel_, [&](const WindowNode* window) { return sameName(window->text(), caption); });
    return found == topLevel_.end() ? nullptr : *found;
}

WindowNode* Screen::windowAt(Point pixel) const {
    const bool onScreen = contains({0, 0, size_.width, size_.height}, pixel);
    return onScreen ? foremostAt(topLevel_, pixel, {}) : nullptr;
}

WindowNode* Screen::focused() const {
    const auto found = std::find_if(activated_.rbegin(), activated_.rend(),
                                    [](auto* form) { return form->visible() && form->enabled(); });
    if (found == activated_.rend()) {
        return nullptr;
    }
    const auto taker = focusTakers_.find(*found);
    if (taker != focusTakers_.end()) {
        return taker->second;
    }
    const std::vector<WindowNode*> stops =
        (*found)->dialog() ? tabStops(**found) : std::vector<WindowNode*>();
    return stops.empty() ? *found : stops.front();
}

WindowNode& Screen::formOf(WindowNode& window) {
    WindowNode* form = &window;
    while (form->parent_ != nullptr) {
        form = form->parent_;
    }
    return *form;
}

std::vector<WindowNode*> Screen::tabStops(const WindowNode& form) {
    std::vector<WindowNode*> stops;
    for (WindowNode* child : form.children_) {
        if (!child->visible_ || !child->enabled_) {
            continue;
        }
        if (child->kind_ == WindowKind::control && child->takesKeyboard()) {
            stops.push_back(child);
        }
        const std::vector<WindowNode*> inside = tabStops(*child);
        stops.insert(stops.end(), inside.begin(), inside.end());
    }
    return stops;
}

void Screen::activate(WindowNode& window) {
    WindowNode& form = formOf(window);
    std::erase(activated_, &form);
    activated_.push_back(&form);
    raise(form);
    if (window.takesKeyboard()) {
        focusTakers_[&form] = &window;
    } else if (!form.dialog()) {
        focusTakers_.erase(&form);
    }
}

void Screen::raise(WindowNode& window) { insert(window, true); }

void Screen::lower(WindowNode& window) { insert(window, false); }

void Screen::setTopmost(WindowNode& window, bool topmost) {
    // Only top-level windows know a topmost position; a child comes to the front of its siblings.
    window.topmost_ = topmost && window.parent_ == nullptr;
    raise(window);
}

bool Screen::setParent(WindowNode& child, WindowNode& parent) {
    for (const WindowNode* above = &parent; above != nullptr; above = above->parent_) {
        if (above == &child) {
            return false;
        }
    }
    if (child.parent_ == nullptr) {
        return false;
    }
    std::erase(siblings(child), &child);
    child.parent_ = &parent;
    raise(child);
    return true;
}

Bitmap Screen::compose() const {
    Bitmap picture(size_, desktop);
    std::for_each(topLevel_.rbegin(), topLevel_.rend(),
                  [&](const WindowNode* window) { composeWindow(picture, *window, {}, picture.bounds()); });
    return picture;
}

void Screen::composeWindow(Bitmap& picture, const WindowNode& window, Point origin,
                           const PixelRect& clip) const {
    const PixelRect rect = moved(window.rect(), origin);
    const PixelRect inside = intersection(rect, clip);
    if (!window.visible() || inside.empty()) {
        return;
    }
    const Point corner{rect.left, rect.top};
    window.draw(picture, corner, inside);
    std::for_each(window.children().rbegin(), window.children().rend(),
                  [&](const WindowNode* child) { composeWindow(picture, *child, corner, inside); });
}

void Screen::countPresented(std::int64_t pixels) {
    ++presented_.times;
    presented_.pixels += pixels;
}

WindowHandle Screen::attach(WindowNode& window) {
    const WindowHandle handle = std::exchange(nextHandle_, nextHandle_ + 2);
    windows_.emplace(handle, &window);
    // A new form comes in front, a new child behind its siblings, as the real system has it.
    insert(window, isTopLevel(window.kind_));
    return handle;
}

void Screen::detach(WindowNode& window) {
    for (WindowNode* child : std::vector(window.children_)) {
        detach(*child);
    }
    std::erase(siblings(window), &window);
    std::erase(activated_, &window);
    focusTakers_.erase(&window);
    std::erase_if(focusTakers_, [&](const auto& taker) { return taker.second == &window; });
    windows_.erase(window.id_);
    window.visible_ = false;
    window.parent_ = nullptr;
}

std::vector<WindowNode*>& Screen::siblings(const WindowNode& window) {
    return window.parent_ != nullptr ? window.parent_->children_ : topLevel_;
}

void Screen::insert(WindowNode& window, bool inFront) {
    const bool orphaned = window.parent_ == nullptr && !isTopLevel(window.kind_);
    if (orphaned) {
        return;
    }
    auto& windows = siblings(window);
    std::erase(windows, &window);
    const auto ownClass = [&](const WindowNode* other) { return window.topmost_ || !other->topmost_; };
    const auto begin = std::ranges::find_if(windows, ownClass);
    const auto end = window.topmost_
                         ? std::ranges::find_if(windows, [](auto* other) { return !other->topmost_; })
                         : windows.end();
    windows.insert(inFront ? begin : end, &window);
}

} // namespace sys::simulated
