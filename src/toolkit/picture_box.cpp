#include "toolkit/picture_box.h"

#include "toolkit/application.h"
#include "toolkit/form.h"
#include "toolkit/pictures.h"

namespace toolkit {

PictureBox::PictureBox(Container& container, const PictureBoxDesign& design)
    : Control(container, design.control), Canvas(static_cast<Element&>(*this), design.backColor),
      design_(design) {}

void PictureBox::load() {
    Control::load();
    assumePicture(designPicture(design_.picture), design_.backColor);
}

std::unique_ptr<sys::Window> PictureBox::makeWindow() {
    auto made = Application::current().system().createPictureBox(container().nativeWindow(), backColor());
    made->place(area());
    if (design_.stretched) {
        paintNewSurface(*made, sys::Area{0, 0, width(), height()});
    } else {
        paintNewSurface(*made);
    }
    return made;
}

} // namespace toolkit
