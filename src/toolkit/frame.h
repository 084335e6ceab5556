// A frame around controls that belong together: they stand in it, and are seen when it is.
#pragma once

#include "toolkit/control.h"

#include <string>
#include <utility>

namespace toolkit {

struct FrameDesign {
    std::string caption{};
    bool border = true;
};

class Frame : public Control, public Container {
public:
    Frame(Container& container, const Design& design, FrameDesign frame = {})
        : Control(container, design), design_(std::move(frame)) {}

    /// Brings it, with all that stands in it, to the screen at once.
    void refresh();

    Form& host() override { return form(); }
    sys::Window& nativeWindow() override { return window(); }
    bool showsControls() const override { return visible() && container().showsControls(); }

private:
    /// Its window is made with the form, also that of a hidden one, so that it keeps its place among its
    /// siblings; the windows of what stands in it are made when it is first seen.
    void formShown() override;
    void visibilityChanges() override;
    std::unique_ptr<sys::Window> makeWindow() override;

    FrameDesign design_;
};

} // namespace toolkit
