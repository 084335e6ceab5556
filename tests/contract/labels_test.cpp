#include "contract/contract_test.h"

#include <algorithm>

namespace contract {

namespace {

/// A form with a label that is sized to its text.
class TextForm : public toolkit::Form {
public:
    TextForm() : Form({.name = "TextForm", .caption = "Contract Text Form", .maximized = true}) {}

    toolkit::Label text{*this,
                        {.control = {.name = "text", .left = twips(20), .top = twips(30)},
                         .font = {.name = "Arial", .points = 30, .bold = true},
                         .colors = sys::LabelColors{white, red},
                         .autoSize = true}};
};

class Labels : public FormTest {};

class LabelTexts : public MachineTest {
protected:
    LabelTexts() { form.show(); }

    /// In pixels, as far as something other than the form's black is seen.
    sys::Size seenSize() {
        driver->settle();
        const sys::Size screen = system.screenSize();
        const auto lengthOf = [](const std::vector<sys::Color>& colors) {
            return static_cast<int>(std::ranges::find(colors, sys::Color{}) - colors.begin());
        };
        return {lengthOf(seen({20, 30, screen.width, 31})), lengthOf(seen({20, 30, 21, screen.height}))};
    }

    TextForm& form = application.form<TextForm>();
};

} // namespace

TEST_F(Labels, Label_LiesInFrontOfPictureBoxes) {
    EXPECT_EQ(seen(TestForm::labelPlace.right - 1, TestForm::labelPlace.bottom - 1), grey);
    EXPECT_EQ(seen(TestForm::labelPlace.right, TestForm::labelPlace.bottom - 1), red);
    form.left.refresh();
    EXPECT_EQ(seen(TestForm::labelPlace.right - 1, TestForm::labelPlace.bottom - 1), grey);
}

TEST_F(Labels, Label_StaysInFrontOfAPictureBoxShownLater) {
    form.left.setVisible(false);
    driver->settle();
    form.left.setVisible(true);
    driver->settle();
    EXPECT_EQ(seen(TestForm::labelPlace.right - 1, TestForm::labelPlace.bottom - 1), grey);
}

TEST_F(Labels, LabelShownLater_LiesInFrontOfATopmostPictureBox) {
    form.label.setVisible(false);
    system.platform().setWindowPos(form.left.hWnd(), sys::topmostPosition, 0, 0, 0, 0,
                                   sys::keepSize | sys::keepPosition);
    driver->settle();
    EXPECT_EQ(seen(TestForm::labelPlace.right - 1, TestForm::labelPlace.bottom - 1), red);
    form.label.setVisible(true);
    driver->settle();
    EXPECT_EQ(seen(TestForm::labelPlace.right - 1, TestForm::labelPlace.bottom - 1), grey);
}

TEST_F(Labels, HiddenLabel_ShowsWhatLiesBeneath) {
    form.label.setVisible(false);
    driver->settle();
    EXPECT_THAT(seen(TestForm::labelPlace), Each(red));
}

TEST_F(Labels, Mouse_ReachesTheLabelAndNotWhatLiesBeneath) {
    driver->moveMouse({70, 65});
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("label move 0 at 150 75"));
    driver->pressButton(sys::leftButton);
    driver->releaseButton(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("label down 1 at 150 75", "label click"));
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(),
                ElementsAre("label down 1 at 150 75", "label click", "label double click", "label click"));
}

TEST_F(Labels, PressOnTheLabel_IsReleasedThereWhereverThePointerIs) {
    driver->moveMouse({70, 65});
    driver->settle();
    form.take();
    driver->pressButton(sys::leftButton);
    driver->moveMouse({150, 50});
    driver->releaseButton(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("label down 1 at 150 75", "label move 1 at 1350 -150"));
}

TEST_F(LabelTexts, Height_IsThatOfTheLines) {
    form.text.setCaption("One");
    const float line = form.text.height();
    EXPECT_GT(line, twips(20));
    EXPECT_EQ(seenSize().height * 15, static_cast<int>(line));
    form.text.setCaption("One\r\nTwo\r\nThree");
    EXPECT_EQ(form.text.height(), 3 * line);
    EXPECT_EQ(seenSize().height * 15, static_cast<int>(3 * line));
    form.text.setCaption("One\r\n\r\nThree");
    EXPECT_EQ(form.text.height(), 3 * line);
}

TEST_F(LabelTexts, TrailingLineBreak_AddsNoLine) {
    form.text.setCaption("One");
    const float line = form.text.height();
    form.text.setCaption("One\r\nTwo\r\n");
    EXPECT_EQ(form.text.height(), 2 * line);
    form.text.setCaption("");
    EXPECT_EQ(form.text.height(), line);
}

TEST_F(LabelTexts, Width_IsThatOfTheLongestLine) {
    form.text.setCaption("A rather long line");
    const float longest = form.text.width();
    EXPECT_EQ(seenSize().width * 15, static_cast<int>(longest));
    form.text.setCaption("A");
    EXPECT_LT(form.text.width(), longest / 2);
    form.text.setCaption("A\r\nA rather long line\r\nA");
    EXPECT_EQ(form.text.width(), longest);
}

TEST_F(LabelTexts, Ampersand_IsALetter) {
    form.text.setCaption("A");
    const float one = form.text.width();
    form.text.setCaption("A&A");
    EXPECT_GT(form.text.width(), 2 * one);
}

TEST_F(LabelTexts, Text_IsSeenInItsColors) {
    form.text.setCaption("HHH");
    const sys::Size size = seenSize();
    const auto colors = seen({20, 30, 20 + size.width, 30 + size.height});
    EXPECT_THAT(colors, testing::Contains(white));
    EXPECT_THAT(colors, testing::Contains(red));
    form.text.setCaption("   ");
    driver->settle();
    EXPECT_THAT(seen({20, 30, 20 + seenSize().width, 30 + size.height}), Each(red));
}

} // namespace contract
