// The tree of windows and the screen that they make up.
#pragma once

#include "system/simulated/bitmap.h"
#include "system/window.h"

#include <map>
#include <string>
#include <vector>

namespace sys::simulated {

class Screen;

enum class WindowKind { form, pictureBox, label, mediaPlayer, control, foreign };

/// A window's place in the tree. The screen must outlive it; its parent need not: a window goes with its
/// parent, and what is left of it then is an object that stands for no window any more.
class WindowNode {
public:
    WindowNode(Screen& screen, WindowKind kind, WindowNode* parent, std::string text);
    virtual ~WindowNode();
    WindowNode(const WindowNode&) = delete;
    WindowNode& operator=(const WindowNode&) = delete;

    WindowHandle id() const { return id_; }
    WindowKind kind() const { return kind_; }
    const std::string& text() const { return text_; }
    const Area& area() const { return area_; }
    bool visible() const { return visible_; }
    bool topmost() const { return topmost_; }
    bool inTaskBar() const { return inTaskBar_; }
    bool dialog() const { return dialog_; }
    const std::vector<MenuEntry>& menu() const { return menu_; }
    /// How often it was brought to the screen at once, which shows nothing new on a screen that is composed
    /// when it is looked at.
    int refreshes() const { return refreshes_; }
    /// Whether it takes input, which what it stands in has a say in.
    bool enabled() const;
    /// Whether it can have the keyboard, and is reached by the tab key.
    virtual bool takesKeyboard() const { return kind_ == WindowKind::mediaPlayer; }
    WindowNode* parent() const { return parent_; }
    /// Front first.
    const std::vector<WindowNode*>& children() const { return children_; }

    /// In pixels of the parent's client area, or of the screen.
    PixelRect rect() const;
    PixelRect screenRect() const;
    /// What of `screenRect` the parents and the screen leave, and nothing when one of them is hidden.
    PixelRect visibleRect() const;

    void moveTo(const Area& area);
    void setVisible(bool visible);
    /// Brings its form to the front and gives the keyboard to it, or to this window if it takes it.
    void activate();
    void setCaption(const std::string& text) { text_ = text; }
    void setInTaskBar(bool inTaskBar) { inTaskBar_ = inTaskBar; }
    void setEnabled(bool enabled) { enabled_ = enabled; }
    void countRefresh() { ++refreshes_; }
    void makeDialog(const std::vector<MenuEntry>& menu) {
        dialog_ = true;
        menu_ = menu;
    }

    /// Draws the window itself, its upper left corner at `at`, within `clip`.
    virtual void draw(Bitmap& screen, Point at, const PixelRect& clip) const = 0;

protected:
    virtual void resized() {}
    Screen& screen() const { return screen_; }

private:
    friend class Screen;

    Screen& screen_;
    WindowHandle id_ = 0;
    WindowKind kind_;
    std::string text_;
    Area area_;
    bool visible_ = false;
    bool topmost_ = false;
    bool inTaskBar_ = false;
    bool enabled_ = true;
    bool dialog_ = false;
    std::vector<MenuEntry> menu_;
    int refreshes_ = 0;
    WindowNode* parent_;
    std::vector<WindowNode*> children_;
};

/// What the kinds of windows share of `sys::Window`; `Node` is the kind of place in the tree.
template <class Interface, class Node = WindowNode> class NativeWindow : public Interface, public Node {
public:
    using Node::Node;
    WindowHandle handle() const override { return this->id(); }
    void place(const Area& area) override { Node::moveTo(area); }
    void show(bool visible) override { this->setVisible(visible); }
    void focus() override { this->activate(); }
    void enable(bool enabled) override { this->setEnabled(enabled); }
    void setText(const std::string& text) override { this->setCaption(text); }
    void refresh() override { this->countRefresh(); }
};

/// What `present` has brought to the screen so far.
struct Presented {
    int times = 0;           // presents that brought something
    std::int64_t pixels = 0; // those of hidden windows don't count
};

class Screen {
public:
    Screen(Size size, TwipsPerPixel scale) : size_(size), scale_(scale) {}

    Size size() const { return size_; }
    TwipsPerPixel scale() const { return scale_; }

    /// Null when there is no such window.
    WindowNode* find(WindowHandle handle) const;
    /// The first top-level window with that caption, in any case of its letters.
    WindowNode* findCaption(const std::string& caption) const;
    /// Forms and other programs' windows, front first.
    const std::vector<WindowNode*>& topLevel() const { return topLevel_; }
    /// The foremost visible window at a pixel, or null.
    WindowNode* windowAt(Point pixel) const;
    /// What the keyboard acts on, or null: the form that was shown or clicked last of those that take input,
    /// or the control that took the focus from it. In a dialog that is its first control at first.
    WindowNode* focused() const;
    /// Brings the window's form to the front and gives the keyboard to it; to the window itself if that takes
    /// it. A dialog's control keeps it against a click beside all controls.
    void activate(WindowNode& window);
    /// What the tab key reaches in a form, in its order.
    static std::vector<WindowNode*> tabStops(const WindowNode& form);
    static WindowNode& formOf(WindowNode& window);

    /// Brings a window in front of its siblings; only topmost ones stay before it.
    void raise(WindowNode& window);
    void lower(WindowNode& window);
    void setTopmost(WindowNode& window, bool topmost);
    /// Gives a child to another parent, in front of its children; false when that is no place for it.
    bool setParent(WindowNode& child, WindowNode& parent);

    /// The picture that the visible windows make, from what each has presented.
    Bitmap compose() const;

    void countPresented(std::int64_t pixels);
    Presented presented() const { return presented_; }

private:
    friend class WindowNode;

    WindowHandle attach(WindowNode& window);
    void detach(WindowNode& window);
    std::vector<WindowNode*>& siblings(const WindowNode& window);
    void insert(WindowNode& window, bool inFront);
    void composeWindow(Bitmap& picture, const WindowNode& window, Point origin, const PixelRect& clip) const;

    Size size_;
    TwipsPerPixel scale_;
    std::map<WindowHandle, WindowNode*> windows_;
    std::vector<WindowNode*> topLevel_;                    // front first
    std::vector<WindowNode*> activated_;                   // forms; the last one was activated last
    std::map<const WindowNode*, WindowNode*> focusTakers_; // the controls that took the focus, by their forms
    WindowHandle nextHandle_ = 0x10002;
    Presented presented_;
};

} // namespace sys::simulated
