#include "toolkit/form.h"

#include "toolkit/application.h"
#include "toolkit/command_button.h"
#include "toolkit/menu.h"

#include <algorithm>

namespace toolkit {

Form::Form(const FormDesign& design)
    : Element(design.name), Canvas(static_cast<Element&>(*this), design.backColor), design_(design),
      caption_(design.caption) {}

Form::~Form() { closeWindow(); }

void Form::load() {
    if (loaded_) {
        return;
    }
    loaded_ = true;
    Application& application = Application::current();
    application.formLoaded();
    assume(designArea(), true);
    caption_ = design_.caption;
    assumePicture(nullptr, design_.dialog ? application.system().dialogColor() : design_.backColor);
    for (Component* component : components_) {
        component->load();
    }
    loadEvent.raise();
}

sys::Area Form::designArea() const {
    sys::Area area{0, 0, design_.width, design_.height};
    sys::System& system = Application::current().system();
    const sys::Size screen = system.screenSize();
    const sys::TwipsPerPixel scale = system.twipsPerPixel();
    const auto screenWidth = static_cast<float>(screen.width * scale.x);
    const auto screenHeight = static_cast<float>(screen.height * scale.y);
    if (design_.maximized) {
        area.width = screenWidth;
        area.height = screenHeight;
    } else if (design_.dialog) {
        // The room stands as far below the middle as its caption takes. Where the screen is too small for
        // it, its beginning is what can be seen, and its caption above it.
        area.left = std::max((screenWidth - area.width) / 2, 0.0F);
        const auto caption = static_cast<float>(system.captionHeight(!menuItems_.empty()) * scale.y);
        area.top = std::max((screenHeight - area.height + caption) / 2, caption);
    }
    return area;
}

void Form::show() {
    load();
    // `Form_Load` may have unloaded the form again.
    if (!loaded_ || shown_) {
        return;
    }
    shown_ = true;
    for (Component* component : components_) {
        component->formShown();
    }
    if (visible()) {
        window().show(true);
    }
    Application::current().formShows(*this);
}

void Form::showModal() {
    Application& application = Application::current();
    modal_ = true;
    show();
    while (shown()) {
        application.pass();
    }
    modal_ = false;
}

void Form::chooseCommand(int command) {
    if (command >= 1 && static_cast<std::size_t>(command) <= menuItems_.size()) {
        menuItems_[static_cast<std::size_t>(command - 1)]->click.raise();
    }
}

void Form::answer(bool accepted) {
    for (Component* component : components_) {
        auto* button = dynamic_cast<CommandButton*>(component);
        if (button != nullptr && (accepted ? button->isDefault() : button->isCancel())) {
            button->userClicked();
            return;
        }
    }
}

void Form::setCaption(const std::string& caption) {
    caption_ = caption;
    if (hasWindow()) {
        window().setText(caption);
    }
}

bool Form::askedToGo(sys::CloseReason reason) {
    // The request is over when its events are, also by a failure in one of them.
    struct Request {
        explicit Request(bool& flag) : underWay(flag) { underWay = true; }
        ~Request() { underWay = false; }
        bool& underWay;
    } const request(unloading_);
    bool cancel = false;
    queryUnload.raise(cancel, static_cast<std::int16_t>(reason));
    if (!cancel) {
        unloadEvent.raise(cancel);
    }
    return !cancel;
}

void Form::unload(sys::CloseReason reason) {
    if (!loaded_ || unloading_ || !askedToGo(reason)) {
        return;
    }
    loaded_ = false;
    shown_ = false;
    // While its window still stands: the system gives the keyboard to another only if that can take it.
    Application::current().formHides(*this);
    if (design_.dialog && hasWindow()) {
        window().show(false); // at once, or its controls would be seen going one by one
    }
    for (Component* component : components_) {
        component->unload();
    }
    closeWindow();
    Application::current().formUnloaded();
}

std::unique_ptr<sys::Window> Form::makeWindow() {
    auto made =
        Application::current().system().createForm({.caption = caption_,
                                                    .backColor = backColor(),
                                                    .maximized = design_.maximized,
                                                    .inTaskBar = design_.inTaskBar,
                                                    .dialog = design_.dialog,
                                                    .menu = MenuItem::entriesOf(menuItems_, nullptr)});
    made->place(area());
    paintNewSurface(*made);
    return made;
}

} // namespace toolkit
