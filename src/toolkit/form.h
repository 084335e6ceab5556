// A form: a window with controls, its loading, showing and unloading.
#pragma once

#include "toolkit/canvas.h"
#include "toolkit/control.h"

#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

class MenuItem;

struct FormDesign {
    std::string name;
    std::string caption{};
    sys::Color backColor{};
    float width = 0; // twips; a maximized form takes the screen's size
    float height = 0;
    bool maximized = false;
    bool inTaskBar = true;
    bool keyPreview = false; // the form gets key events before the control that has the focus
    /// In a frame with its caption, in the middle of the screen and in the system's colour; width and height
    /// are those of the room inside.
    bool dialog = false;
};

/// Each form has one default instance (`Application::form`), made at first use and as long-lived as the
/// process: its public fields outlive an unload.
class Form : public Element, public Canvas, public Container {
public:
    ~Form() override;

    /// Gives all values of the design back to form and controls and raises `loadEvent`; nothing when the
    /// form is loaded already.
    void load();
    /// Loads the form if need be and puts it on the screen.
    void show();
    /// Shows it and returns when it has been unloaded. The forms that are shown already take no input
    /// meanwhile.
    void showModal();
    /// Asks `queryUnload`, then raises `unloadEvent`, then takes the windows away. Either may refuse by
    /// setting its argument. A request made while one is under way does nothing.
    void unload(sys::CloseReason reason = sys::CloseReason::byCode);
    /// Gives the form the input focus.
    void setFocus() { window().focus(); }

    bool loaded() const { return loaded_; }
    bool shown() const { return loaded_ && shown_; }
    bool keyPreview() const { return design_.keyPreview; }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);

    Form& host() override { return *this; }
    sys::Window& nativeWindow() override { return window(); }
    bool showsControls() const override { return shown(); }

    /// The user has chosen an entry of the menu, by its command.
    void chooseCommand(int command);
    /// The user has pressed Enter (`accepted`) or Escape: a click on the default or the cancel button.
    void answer(bool accepted);

protected:
    explicit Form(const FormDesign& design);

    Event<> loadEvent;
    Event<bool&, std::int16_t> queryUnload; // cancel, the reason
    Event<bool&> unloadEvent;               // cancel

private:
    friend class Application;
    friend class Component;
    friend class MenuItem;

    bool canShow() const override { return shown(); }
    std::unique_ptr<sys::Window> makeWindow() override;
    sys::Canvas& surface() override { return static_cast<sys::Canvas&>(window()); }
    bool hasSurface() const override { return hasWindow(); }
    bool askedToGo(sys::CloseReason reason);
    sys::Area designArea() const;

    FormDesign design_;
    std::string caption_;
    std::vector<Component*> components_; // in the order of the design
    std::vector<MenuItem*> menuItems_;   // the command of each is its position, from 1
    bool loaded_ = false;
    bool shown_ = false;
    bool modal_ = false;
    bool unloading_ = false;
};

} // namespace toolkit
