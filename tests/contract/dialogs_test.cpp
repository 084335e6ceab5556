// The controls of dialogs, worked by mouse and keyboard.
#include "contract/contract_test.h"
#include "support/keys.h"
#include "toolkit/check_box.h"
#include "toolkit/command_button.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/folder_list.h"
#include "toolkit/frame.h"
#include "toolkit/list_box.h"
#include "toolkit/option_button.h"
#include "toolkit/scroll_bar.h"
#include "toolkit/text_box.h"

namespace contract {

namespace {

using namespace keys;

class OtherDialog : public toolkit::Form {
public:
    OtherDialog()
        : Form({.name = "OtherDialog",
                .caption = "Contract Other Dialog",
                .width = 1500,
                .height = 900,
                .dialog = true}) {
        close.click = [this] { unload(); };
    }
    toolkit::CommandButton close{*this, {"close", 0, 0, 1500, 300}, {.caption = "Close", .isCancel = true}};
};

class DialogForm : public toolkit::Form {
public:
    DialogForm()
        : Form({.name = "DialogForm",
                .caption = "Contract Dialog",
                .width = 6000,
                .height = 4500,
                .dialog = true}) {
        watch("check", check.click);
        watch("text", text.change);
        watch("bar", bar.change);
        watch("one", one.click);
        watch("two", two.click);
        watch("list", list.click);
        watch("list activated", list.dblClick);
        watch("choice", choice.click);
        watch("folders", folders.change);
        watch("ok", ok.click);
        watch("cancel", cancel.click);
        watch("lines", lines.change);
    }

    toolkit::CheckBox check{*this, {"check", 0, 0, 1500, 300}, "Check"};
    toolkit::TextBox text{*this, {"text", 0, 300, 1500, 300}, {"a"}};
    toolkit::ScrollBar bar{*this,
                           {"bar", 0, 600, 1500, 300},
                           {.min = 10, .max = 50, .smallChange = 2, .largeChange = 10, .value = 20}};
    toolkit::Frame frame{*this, {"frame", 1500, 0, 1500, 900, false}, {"Frame"}};
    toolkit::OptionButton one{frame, {"one", 150, 300, 1200, 300}, {"One", true}};
    toolkit::OptionButton two{frame, {"two", 150, 600, 1200, 225}, {"Two"}};
    toolkit::ListBox list{*this, {"list", 0, 1500, 1500, 1500}};
    toolkit::DropDownList choice{*this, {"choice", 1500, 1500, 1500, 315}};
    toolkit::FolderList folders{*this, {"folders", 3000, 0, 1500, 2500}};
    toolkit::CommandButton ok{*this, {"ok", 0, 3600, 780, 780}, {.caption = "OK", .isDefault = true}};
    toolkit::CommandButton cancel{
        *this, {"cancel", 900, 3600, 780, 780}, {.caption = "Cancel", .isCancel = true}};
    toolkit::TextBox lines{*this, {"lines", 1800, 3000, 1500, 900}, {.multiLine = true}};

    std::vector<std::string> events;
    std::vector<std::string> take() { return std::exchange(events, {}); }

private:
    void watch(const std::string& name, toolkit::Event<>& event) {
        event = [this, name] { events.push_back(name); };
    }
};

class Dialogs : public MachineTest {
protected:
    Dialogs() {
        form.load();
        form.list.addItem("first");
        form.list.addItem("second");
        form.choice.addItem("first");
        form.choice.addItem("second");
        form.frame.setVisible(true);
        form.show();
        driver->settle();
        form.take();
    }

    /// Pixels of the screen, from the upper left corner of a control on the form.
    static sys::Point at(const toolkit::Form& on, const toolkit::Element& control, int x, int y) {
        return {static_cast<int>((on.left() + control.left()) / 15) + x,
                static_cast<int>((on.top() + control.top()) / 15) + y};
    }
    void click(sys::Point point) {
        driver->moveMouse(point);
        driver->pressButton(sys::leftButton);
        driver->releaseButton(sys::leftButton);
        driver->settle();
    }
    void click(const toolkit::Element& control) { click(at(form, control, 10, 10)); }
    void press(int key, int times = 1) {
        for (; times > 0; --times) {
            driver->pressKey(key);
            driver->settle();
        }
    }

    DialogForm& form = application.form<DialogForm>();
};

} // namespace

TEST_F(Dialogs, Click_OnACheckBox_TurnsIt) {
    click(form.check);
    EXPECT_EQ(form.check.value(), 1);
    click(form.check);
    EXPECT_EQ(form.check.value(), 0);
    EXPECT_THAT(form.take(), ElementsAre("check", "check"));
}

TEST_F(Dialogs, Click_OnAnOptionInAFrame_ClearsTheOther) {
    const sys::Point two = at(form, form.frame, 20, 45);
    click(two);
    EXPECT_TRUE(form.two.value());
    EXPECT_FALSE(form.one.value());
    click(two);
    EXPECT_THAT(form.take(), ElementsAre("two"));
}

TEST_F(Dialogs, Click_OnAnItem_SelectsItAlsoAgain) {
    click(at(form, form.list, 10, 6));
    click(at(form, form.list, 10, 6));
    EXPECT_EQ(form.list.text(), "first");
    EXPECT_THAT(form.take(), ElementsAre("list", "list"));
}

TEST_F(Dialogs, DoubleClick_OnAnItem_ActivatesIt) {
    driver->moveMouse(at(form, form.list, 10, 6));
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_EQ(form.list.text(), "first");
    EXPECT_THAT(form.take(), testing::Contains("list activated"));
}

TEST_F(Dialogs, Click_BesideAllControls_LeavesTheKeyboardWhereItIs) {
    click(at(form, form.ok, 200, 20));
    press(space);
    EXPECT_THAT(form.take(), ElementsAre("check"));
}

TEST_F(Dialogs, Tab_GoesInTheOrderOfTheDesignAndPastHiddenControls) {
    press(tab, 2);
    press(right);
    EXPECT_THAT(form.take(), ElementsAre("bar"));
    press(tab);
    press(down);
    EXPECT_THAT(form.take(), ElementsAre("two"));
    press(tab);
    press(down);
    EXPECT_THAT(form.take(), ElementsAre("list"));
    press(tab);
    press(down);
    EXPECT_THAT(form.take(), ElementsAre("choice"));
    EXPECT_EQ(form.choice.text(), "first");
}

TEST_F(Dialogs, Tab_PassesWhatStandsInAHiddenFrame) {
    form.frame.setVisible(false);
    driver->settle();
    press(tab, 3);
    press(down);
    EXPECT_THAT(form.take(), ElementsAre("list"));
}

TEST_F(Dialogs, ScrollBar_KeysMoveItWithinItsRange) {
    press(tab, 2);
    press(right);
    EXPECT_EQ(form.bar.value(), 22);
    press(end);
    EXPECT_EQ(form.bar.value(), 50);
    press(right);
    EXPECT_EQ(form.bar.value(), 50);
    press(home);
    EXPECT_EQ(form.bar.value(), 10);
    EXPECT_THAT(form.take(), ElementsAre("bar", "bar", "bar"));
}

TEST_F(Dialogs, ScrollBar_ClickOnItsArrow_IsASmallStep) {
    click(at(form, form.bar, 95, 10));
    EXPECT_EQ(form.bar.value(), 22);
}

TEST_F(Dialogs, TextBox_TypingChangesIt) {
    press(tab);
    press(end);
    press('B');
    EXPECT_EQ(form.text.text(), "ab");
    EXPECT_THAT(form.take(), ElementsAre("text"));
    form.text.setText("c");
    EXPECT_THAT(form.take(), ElementsAre("text")) << "once";
}

TEST_F(Dialogs, KeyPress_MayPutAnotherCharacterInPlaceOfTheTypedOne) {
    form.lines.keyPress = [](std::int16_t& character) {
        if (character == 'x') {
            character = '\r';
        } else if (character == 'y') {
            character = 0;
        }
    };
    press(tab, 9);
    for (const char key : {'A', 'X', 'Y', 'B'}) {
        press(key);
    }
    EXPECT_EQ(form.lines.text(), "a\r\nb");
    EXPECT_THAT(form.take(), ElementsAre("lines", "lines", "lines"));
}

TEST_F(Dialogs, EnterAndEscape_AreClicksOnTheDefaultAndTheCancelButton) {
    press(enter);
    press(escape);
    EXPECT_THAT(form.take(), ElementsAre("ok", "cancel"));
}

TEST_F(Dialogs, Enter_OnAButtonThatHasTheKeyboard_IsAClickOnIt) {
    press(tab, 8);
    press(enter);
    EXPECT_THAT(form.take(), ElementsAre("cancel"));
}

TEST_F(Dialogs, Enter_OnAButtonThatHasTheKeyboardFromTheStart_IsAClickOnIt) {
    auto& other = application.form<OtherDialog>();
    other.show();
    driver->settle();
    press(enter);
    EXPECT_FALSE(other.loaded());
}

TEST_F(Dialogs, FolderList_EnterEntersTheSelectedFolder) {
    driver->addFolder(driver->folder() + "\\inner");
    form.folders.setPath(driver->folder());
    form.take();
    const int last = form.folders.listCount() - 1;
    press(tab, 6);
    press(end);
    EXPECT_EQ(form.folders.listIndex(), last);
    EXPECT_THAT(form.take(), IsEmpty());
    press(enter);
    EXPECT_EQ(form.folders.path(), driver->folder() + "\\inner");
    EXPECT_THAT(form.take(), ElementsAre("folders"));
}

TEST_F(Dialogs, Disabled_TakesNoClickAndNoTab) {
    form.check.setEnabled(false);
    form.text.setEnabled(false);
    click(form.check);
    EXPECT_THAT(form.take(), IsEmpty());
    form.check.setEnabled(true);
    click(form.check);
    EXPECT_THAT(form.take(), ElementsAre("check"));
    press(tab);
    press(right);
    EXPECT_THAT(form.take(), ElementsAre("bar"));
}

TEST_F(Dialogs, ModalForm_TakesTheKeyboardAndBlocksTheOther) {
    auto& other = application.form<OtherDialog>();
    form.check.click = [&] {
        form.events.emplace_back("check");
        other.showModal();
        form.events.emplace_back("back");
    };
    driver->moveMouse(at(form, form.check, 10, 10));
    driver->pressButton(sys::leftButton);
    driver->releaseButton(sys::leftButton);
    driver->pressKey(escape);
    ASSERT_TRUE(driver->waitUntil([&] { return form.events.size() == 2; }));
    EXPECT_THAT(form.take(), ElementsAre("check", "back"));
    EXPECT_FALSE(other.loaded());
    form.check.click = [&] { form.events.emplace_back("check"); };
    driver->settle();
    press(space);
    EXPECT_THAT(form.take(), ElementsAre("check")) << "the control has the keyboard again";
}

// Files and folders of the lists

TEST_F(Dialogs, Folders_AreWholeAndFailAsTheirDrivesAndNames) {
    sys::Files& files = system.files();
    const std::string folder = driver->folder();
    driver->addFolder(folder + "\\one");
    driver->addFolder(folder + "\\two");
    EXPECT_EQ(files.wholeFolder(folder + "\\"), folder);
    EXPECT_EQ(files.wholeFolder(folder + "\\one\\..\\two\\"), folder + "\\two");
    EXPECT_THAT(files.folders(folder), ElementsAre("one", "two"));
    EXPECT_EQ(failureOf([&] { files.wholeFolder(folder + "\\none"); }), 76);
    EXPECT_EQ(failureOf([&] { files.folders(folder + "\\none"); }), 76);
    EXPECT_EQ(failureOf([&] { files.wholeFolder("Q:\\"); }), 68);
    EXPECT_EQ(files.wholeFolder(""), files.wholeFolder("."));
    const auto drives = files.drives();
    EXPECT_TRUE(std::ranges::any_of(drives, [](const sys::DriveName& drive) { return drive.letter == 'C'; }));
}

} // namespace contract
