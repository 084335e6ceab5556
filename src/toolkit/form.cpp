#include "toolkit/form.h"

#include "toolkit/application.h"

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
    sys::Area area{0, 0, design_.width, design_.height};
    if (design_.maximized) {
        const sys::Size screen = application.system().screenSize();
        const sys::TwipsPerPixel scale = application.system().twipsPerPixel();
        area.width = static_cast<float>(screen.width * scale.x);
        area.height = static_cast<float>(screen.height * scale.y);
    }
    assume(area, true);
    caption_ = design_.caption;
    assumePicture(nullptr, design_.backColor);
    for (Component* component : components_) {
        component->load();
    }
    loadEvent.raise();
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
    for (Component* component : components_) {
        component->unload();
    }
    closeWindow();
    Application::current().formUnloaded();
}

std::unique_ptr<sys::Window> Form::makeWindow() {
    auto made = Application::current().system().createForm(
        {caption_, backColor(), design_.maximized, design_.inTaskBar});
    made->place(area());
    paintNewSurface(*made);
    return made;
}

} // namespace toolkit
