// The image control that stretches its picture.
#include "toolkit/stretched_image.h"

#include "system/simulated/pictures.h"
#include "toolkit/pictures.h"
#include "unit/toolkit/toolkit_fixture.h"

namespace {

class ImageForm : public PlainForm {
public:
    ImageForm() : PlainForm({.name = "ImageForm", .width = 3000, .height = 1500}) {}
    toolkit::StretchedImage image{*this, {"image", 150, 150, 600, 300}};
};

class Stretching : public ToolkitFixture {
protected:
    static sys::PicturePtr plain(sys::Size size, sys::Color color) {
        const std::vector<std::uint8_t> file =
            sys::simulated::bmpFile(sys::simulated::Bitmap(size, sys::simulated::opaque(color)));
        return toolkit::designPicture(file);
    }
    ImageForm& form = application.form<ImageForm>();
};

TEST_F(Stretching, Picture_FillsTheControlAndLeavesItsSize) {
    form.show();
    form.image.setPicture(plain({1, 1}, red));
    EXPECT_EQ(seen(10, 10), red);
    EXPECT_EQ(seen(49, 29), red);
    EXPECT_NE(seen(50, 29), red);
    form.image.setPicture(plain({100, 300}, blue));
    EXPECT_EQ(seen(10, 10), blue);
    EXPECT_EQ(seen(49, 29), blue);
    EXPECT_EQ(form.image.width(), 600);
    EXPECT_EQ(form.image.height(), 300);
}

TEST_F(Stretching, PictureGivenBeforeTheForm_IsSeenWithIt) {
    form.load();
    form.image.setPicture(plain({3, 2}, green));
    form.show();
    EXPECT_EQ(seen(30, 20), green);
}

TEST_F(Stretching, EmptyPictureAndTheNextLoad_ShowTheGround) {
    form.show();
    form.image.setPicture(plain({3, 2}, green));
    form.image.setPicture(nullptr);
    EXPECT_EQ(seen(30, 20), sys::simulated::faceColor);
    form.image.setPicture(plain({3, 2}, green));
    form.unload();
    form.show();
    EXPECT_EQ(form.image.picture(), nullptr);
    EXPECT_EQ(seen(30, 20), sys::simulated::faceColor);
}

} // namespace
