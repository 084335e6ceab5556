// The controls of dialogs: what an assignment raises and when, what the user's acts raise, the keyboard, and
// modal forms.
#include "support/keys.h"
#include "unit/toolkit/dialog_fixture.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>

#include <tuple>

namespace {

using sys::ScrollStep;
using testing::ElementsAre;
using testing::IsEmpty;

using namespace keys;

// Assignments

TEST_F(Dialog, CheckBox_AssignedAnotherValue_RaisesInsideTheAssignment) {
    form.load();
    form.check.click = [this] { log("click " + std::to_string(form.check.value())); };
    form.check.setValue(1);
    log("assigned");
    form.check.setValue(1);
    form.check.setValue(0);
    EXPECT_THAT(events, ElementsAre("click 1", "assigned", "click 0"));
    EXPECT_EQ(failureOf([this] { form.check.setValue(2); }), 380);
}

TEST_F(Dialog, OptionButton_OnlyTheOneThatBecomesTrueRaises) {
    form.load();
    form.two.setValue(true);
    EXPECT_THAT(take(), ElementsAre("two click"));
    EXPECT_FALSE(form.one.value());
    EXPECT_TRUE(form.other.value()) << "it stands elsewhere";
    form.two.setValue(true);
    form.two.setValue(false);
    form.one.setValue(false);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_FALSE(form.one.value() || form.two.value() || form.three.value());
}

TEST_F(Dialog, ScrollBar_AssignedAnotherValue_RaisesAndRefusesWhatIsOutside) {
    form.load();
    form.bar.setValue(20);
    EXPECT_THAT(take(), IsEmpty());
    form.bar.setValue(50);
    EXPECT_THAT(take(), ElementsAre("bar change"));
    EXPECT_EQ(failureOf([this] { form.bar.setValue(51); }), 380);
    EXPECT_EQ(failureOf([this] { form.bar.setValue(9); }), 380);
    EXPECT_EQ(form.bar.value(), 50);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(Dialog, TextBox_AssignedAnotherText_RaisesInsideTheAssignment) {
    form.load();
    form.text.setText("design");
    EXPECT_THAT(take(), IsEmpty());
    form.text.setText("text");
    EXPECT_THAT(take(), ElementsAre("text change"));
}

TEST_F(Dialog, ListIndex_AssignedAnother_RaisesAndRefusesWhatIsOutside) {
    form.load();
    form.choice.addItem("a");
    form.choice.addItem("b");
    EXPECT_EQ(form.choice.listIndex(), -1);
    EXPECT_EQ(form.choice.text(), "");
    form.choice.setListIndex(1);
    form.choice.setListIndex(1);
    EXPECT_THAT(take(), ElementsAre("choice click"));
    EXPECT_EQ(form.choice.text(), "b");
    EXPECT_EQ(failureOf([this] { form.choice.setListIndex(2); }), 380);
    EXPECT_EQ(failureOf([this] { form.choice.setListIndex(-2); }), 380);
    form.choice.setListIndex(-1);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(form.choice.list(2), "") << "behind the last one";
    EXPECT_EQ(failureOf([this] { std::ignore = form.choice.list(3); }), 9);
}

TEST_F(Dialog, Load_GivesAllValuesOfTheDesignBackAndRaisesNothing) {
    form.load();
    form.check.setValue(1);
    form.text.setText("text");
    form.bar.setValue(50);
    form.three.setValue(true);
    form.check.setEnabled(false);
    form.list.addItem("a");
    form.unload();
    take();
    form.load();
    EXPECT_EQ(form.check.value(), 0);
    EXPECT_TRUE(form.check.enabled());
    EXPECT_EQ(form.text.text(), "design");
    EXPECT_EQ(form.bar.value(), 20);
    EXPECT_TRUE(form.one.value());
    EXPECT_FALSE(form.three.value());
    EXPECT_EQ(form.list.listCount(), 0);
    EXPECT_THAT(take(), IsEmpty());
}

// What the user does

TEST_F(Dialog, User_ClicksRaiseAsAssignmentsDo) {
    form.show();
    machine.user().clickOn(form.check.hWnd());
    machine.user().clickOn(form.three.hWnd());
    machine.user().clickOn(form.three.hWnd());
    machine.user().clickOn(form.ok.hWnd());
    machine.runUntilIdle();
    EXPECT_THAT(take(), ElementsAre("check click", "three click", "ok click"));
    EXPECT_EQ(form.check.value(), 1);
    EXPECT_TRUE(form.three.value());
    machine.user().clickOn(form.check.hWnd());
    machine.runUntilIdle();
    EXPECT_EQ(form.check.value(), 0);
}

TEST_F(Dialog, AnotherProgramSetsAMark_RaisesAsAnAssignmentDoes) {
    form.show();
    const auto mark = [this](toolkit::Button& button, bool marked) {
        application.input().buttonMarked(button.hWnd(), marked);
    };
    mark(form.check, true);
    mark(form.check, true);
    EXPECT_THAT(take(), ElementsAre("check click"));
    EXPECT_EQ(form.check.value(), 1);
    mark(form.two, true);
    EXPECT_THAT(take(), ElementsAre("two click"));
    EXPECT_FALSE(form.one.value());
    mark(form.two, false);
    mark(form.ok, true);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_FALSE(form.two.value());
}

TEST_F(Dialog, User_SelectsWhatIsSelected_RaisesAllTheSame) {
    form.show();
    form.list.addItem("a");
    form.list.addItem("b");
    machine.user().selectItem(form.list.hWnd(), 1);
    machine.user().selectItem(form.list.hWnd(), 1);
    machine.user().activateItem(form.list.hWnd(), 1);
    machine.runUntilIdle();
    EXPECT_THAT(take(), ElementsAre("list click", "list click", "list double click"));
    EXPECT_EQ(form.list.text(), "b");
}

TEST_F(Dialog, User_TypesAndScrolls) {
    form.show();
    machine.user().enterText(form.text.hWnd(), "ab");
    machine.user().type('c');
    machine.user().type(8);
    machine.user().type('d');
    machine.runUntilIdle();
    EXPECT_EQ(form.text.text(), "abd");
    EXPECT_EQ(take().size(), 4U);
    machine.user().scroll(form.bar.hWnd(), ScrollStep::smallForward);
    machine.user().scroll(form.bar.hWnd(), ScrollStep::largeForward);
    machine.user().scroll(form.bar.hWnd(), ScrollStep::largeForward);
    machine.runUntilIdle();
    EXPECT_EQ(form.bar.value(), 42);
    machine.user().scroll(form.bar.hWnd(), ScrollStep::largeForward);
    machine.user().scroll(form.bar.hWnd(), ScrollStep::toEnd);
    machine.runUntilIdle();
    EXPECT_EQ(form.bar.value(), 50);
    EXPECT_EQ(take().size(), 4U) << "at the end of the range nothing changes";
    machine.user().scroll(form.bar.hWnd(), ScrollStep::toPosition, 33);
    machine.runUntilIdle();
    EXPECT_EQ(form.bar.value(), 33);
}

TEST_F(Dialog, User_ChoosesFromTheMenu) {
    form.show();
    machine.user().choose(form.hWnd(), "&Second");
    machine.user().choose(form.hWnd(), "&Alone");
    machine.runUntilIdle();
    EXPECT_THAT(take(), ElementsAre("second", "alone"));
}

TEST_F(Dialog, Disabled_TakesNeitherMouseNorKeyboard) {
    form.show();
    form.ok.setEnabled(false);
    machine.user().click(middleOf(form.ok));
    machine.runUntilIdle();
    press(enter);
    EXPECT_THAT(take(), IsEmpty());
    form.ok.setEnabled(true);
    machine.user().click(middleOf(form.ok));
    machine.runUntilIdle();
    press(enter);
    EXPECT_THAT(take(), ElementsAre("ok click", "ok click"));
}

// The keyboard

TEST_F(Dialog, Tab_GoesThroughTheControlsInTheOrderOfTheDesign) {
    form.show();
    std::vector<std::string> names;
    for (int stop = 0; stop < 10; ++stop) {
        names.push_back(focusedName());
        press(tab);
    }
    EXPECT_THAT(names, ElementsAre("check", "text", "bar", "one", "other", "list", "choice", "ok", "cancel",
                                   "check"));
    press(tab, sys::shiftKey);
    press(tab, sys::shiftKey);
    EXPECT_EQ(focusedName(), "cancel");
}

TEST_F(Dialog, Tab_ReachesWhatHasBeenHiddenAtItsPlace) {
    form.show();
    form.hidden.setVisible(true);
    for (int stop = 0; stop < 5; ++stop) {
        press(tab);
    }
    EXPECT_EQ(focusedName(), "drives");
}

TEST_F(Dialog, Arrows_MoveWithinAGroupAndSetTheOption) {
    form.show();
    for (int stop = 0; stop < 3; ++stop) {
        press(tab);
    }
    press(down);
    EXPECT_THAT(take(), ElementsAre("two click"));
    EXPECT_EQ(focusedName(), "two");
    press(right);
    press(down);
    EXPECT_THAT(take(), ElementsAre("three click", "one click"));
    press(left);
    EXPECT_TRUE(form.three.value());
}

TEST_F(Dialog, EnterAndEscape_AreClicksOnTheDefaultAndTheCancelButton) {
    form.show();
    press(enter);
    press(escape);
    EXPECT_THAT(take(), ElementsAre("ok click", "cancel click"));
    press(tab, sys::shiftKey);
    ASSERT_EQ(focusedName(), "cancel");
    press(enter);
    EXPECT_THAT(take(), ElementsAre("cancel click")) << "the button that has the keyboard comes first";
}

TEST_F(Dialog, Keys_WorkTheControlThatHasTheKeyboard) {
    form.list.addItem("a");
    form.show();
    for (const char* item : {"a", "b", "c"}) {
        form.list.addItem(item);
    }
    press(space);
    EXPECT_THAT(take(), ElementsAre("check click"));
    press(tab);
    press(tab);
    press(right);
    EXPECT_EQ(form.bar.value(), 22);
    press(end);
    EXPECT_EQ(form.bar.value(), 50);
    press(tab);
    press(tab);
    press(tab);
    press(down);
    press(down);
    EXPECT_EQ(form.list.text(), "b");
}

TEST_F(Dialog, KeyPress_MayPutAnotherCharacterInPlaceOfTheTypedOne) {
    form.text.keyPress = [](std::int16_t& character) {
        if (character == 'x') {
            character = 'z';
        } else if (character == 'y') {
            character = 0;
        }
    };
    form.show();
    press(tab);
    take();
    for (const char key : {'X', 'Y', 'A'}) {
        press(key);
    }
    EXPECT_EQ(form.text.text(), "designza");
    EXPECT_THAT(events, ElementsAre("text change", "text change"));
}

// Frames

TEST_F(Dialog, Frame_HoldsTheWindowsOfWhatStandsInIt) {
    form.show();
    const auto* two = machine.window(form.two.hWnd());
    EXPECT_EQ(two->parent(), machine.window(form.frame.hWnd()));
    EXPECT_EQ(two->screenRect().left, machine.window(form.hWnd())->screenRect().left + 100);
}

TEST_F(Dialog, HiddenFrame_MakesWhatStandsInItWhenItIsFirstSeen) {
    form.show();
    const auto* frame = machine.window(form.hidden.hWnd());
    EXPECT_THAT(frame->children(), IsEmpty());
    form.hidden.setVisible(true);
    EXPECT_EQ(frame->children().size(), 3U);
    form.hidden.setVisible(false);
    EXPECT_TRUE(machine.window(form.files.hWnd())->visibleRect().empty());
}

// Its left edge was off the screen then, and half of its caption with it.
TEST_F(Dialog, FormLargerThanTheScreen_BeginsAtTheScreensCorner) {
    struct LargeForm : PlainForm {
        LargeForm() : PlainForm({.name = "LargeForm", .width = 15000, .height = 15000, .dialog = true}) {}
    };
    auto& large = application.form<LargeForm>();
    large.load();
    EXPECT_EQ(large.left(), 0);
    EXPECT_EQ(large.top(), 0);
}

// Modal forms

class OtherForm : public PlainForm {
public:
    OtherForm()
        : PlainForm(
              {.name = "OtherForm", .caption = "Other", .width = 1500, .height = 1500, .dialog = true}) {}
    toolkit::CommandButton close{*this, {"close", 0, 0, 1500, 300}, {.caption = "Close", .isCancel = true}};
};

TEST_F(Dialog, ModalForm_HoldsItsCallerAndBlocksTheOthersUntilItGoes) {
    auto& other = application.form<OtherForm>();
    other.close.click = [&] {
        log(form.enabled() ? "enabled" : "blocked");
        other.unload();
    };
    form.ok.click = [&] {
        log("show");
        other.showModal();
        log("shown");
    };
    form.show();
    machine.user().clickOn(form.ok.hWnd());
    machine.user(10).click(middleOf(form.check)); // on the form beneath
    machine.user(20).press(escape);
    machine.runUntilIdle();
    EXPECT_THAT(events, ElementsAre("show", "blocked", "shown"));
    EXPECT_TRUE(form.enabled());
    EXPECT_EQ(focusedName(), "ok") << "the keyboard is back where it was";
}

TEST_F(Dialog, MessageBox_GivesTheAnswerAndFailsWithoutOne) {
    form.show();
    machine.answerMessageBox(sys::MessageAnswer::no);
    EXPECT_EQ(application.ask({.text = "Sure?", .buttons = sys::MessageButtons::yesNo}),
              sys::MessageAnswer::no);
    EXPECT_THAT(machine.messageBoxes(),
                ElementsAre(sys::simulated::ShownMessage{"Sure?", "Title", sys::MessageButtons::yesNo,
                                                         sys::MessageIcon::none}));
    EXPECT_THROW(application.ask({.text = "Sure?", .buttons = sys::MessageButtons::yesNo}), std::logic_error);
}

} // namespace
