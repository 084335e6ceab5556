// The bases of what stands on a form: components (timers), elements (whatever has a place), controls.
#pragma once

#include "system/window.h"
#include "toolkit/event.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace toolkit {

class Control;
class Form;

/// What controls stand in: a form, or a frame on it. It knows its controls in the order of the design, which
/// is the order from back to front and that of the tab key.
class Container {
public:
    Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    virtual Form& host() = 0;
    /// The native window for controls to stand in.
    virtual sys::Window& nativeWindow() = 0;
    /// Whether its visible controls are on the screen.
    virtual bool showsControls() const = 0;

    const std::vector<Control*>& controls() const { return controls_; }

protected:
    ~Container() = default;

private:
    friend class Control;
    std::vector<Control*> controls_;
};

/// A part of a form, seen or unseen. Its values are the design's again at each load of the form.
class Component {
public:
    explicit Component(Form& form);
    virtual ~Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

protected:
    Form& form() const { return form_; }

private:
    friend class Form;
    virtual void load() = 0;
    virtual void unload() = 0;
    virtual void formShown() {}

    Form& form_;
};

/// Anything with a place and a name: a form or a control. Its values live here; a native window stands
/// behind it only once it is shown, painted on, or asked for its handle.
class Element {
public:
    virtual ~Element() = default;
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    const std::string& name() const { return name_; }

    // Twips, relative to what it stands in.
    float left() const { return area_.left; }
    float top() const { return area_.top; }
    float width() const { return area_.width; }
    float height() const { return area_.height; }
    void setLeft(float left) { move(left, top(), width(), height()); }
    void setTop(float top) { move(left(), top, width(), height()); }
    void move(float left, float top, float width, float height);

    bool visible() const { return visible_; }
    void setVisible(bool visible);

    bool enabled() const { return enabled_; }
    /// Disabled, it takes neither keyboard nor mouse.
    void setEnabled(bool enabled);

    /// Who gets key events before this element does; null for no one.
    virtual Element* keyPreviewer() { return nullptr; }

    /// The native window's handle; makes the window if there is none yet.
    sys::WindowHandle hWnd();

    Event<> click;
    Event<> dblClick;
    Event<> gotFocus;                                          // of controls that can have the keyboard
    Event<std::int16_t, std::int16_t> keyDown;                 // key code, shift state
    Event<std::int16_t&> keyPress;                             // character; the handler may put another there
    Event<std::int16_t, std::int16_t, float, float> mouseDown; // button, shift state, x, y in twips
    Event<std::int16_t, std::int16_t, float, float> mouseMove; // the same

protected:
    explicit Element(std::string name) : name_(std::move(name)) {}

    /// The native window, made and placed at first use.
    sys::Window& window();
    bool hasWindow() const { return window_ != nullptr; }
    void closeWindow();
    /// Takes place and visibility without telling anyone: the values of the design.
    void assume(const sys::Area& area, bool visible);
    const sys::Area& area() const { return area_; }

    /// Whether the native window takes part in `visible`. That of a control does from its making on, also on
    /// a form that is never shown: nothing is seen of it then, unless it is given to another parent.
    virtual bool canShow() const = 0;
    /// Called once for each native window, when it has been made and placed.
    virtual void windowMade() {}
    /// Called before a change of `visible` reaches the screen.
    virtual void visibilityChanges() {}
    virtual std::unique_ptr<sys::Window> makeWindow() = 0;

private:
    std::string name_;
    sys::Area area_;
    bool visible_ = true;
    bool enabled_ = true;
    std::unique_ptr<sys::Window> window_;
};

/// The design-time values that all controls have.
struct Design {
    std::string name;
    float left = 0; // twips
    float top = 0;
    float width = 0;
    float height = 0;
    bool visible = true;
};

/// An element that stands on a form.
class Control : public Element, public Component {
public:
    Control(Container& container, const Design& design);
    ~Control() override;

    Element* keyPreviewer() override;

protected:
    Container& container() const { return container_; }
    void load() override;
    void unload() override;
    void formShown() override;
    bool canShow() const override;

private:
    friend class Frame;
    void windowMade() override;

    Container& container_;
    Design design_;
};

/// A control that this program never has on the screen: values, and no window unless a kind makes one.
class HiddenControl : public Control {
public:
    HiddenControl(Container& container, const Design& design) : Control(container, hidden(design)) {}

private:
    static Design hidden(Design design) {
        design.visible = false;
        return design;
    }
    bool canShow() const override { return false; }
    std::unique_ptr<sys::Window> makeWindow() override;
};

} // namespace toolkit
