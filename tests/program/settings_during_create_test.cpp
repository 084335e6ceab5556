// What a user does in the settings dialog while a designer that was closed still writes its package.
#include "designer/frm_designer.h"
#include "program/settings_dialog.h"
#include "support/prompter.h"

#include <functional>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class SettingsDuringCreate : public SettingsDialog {
protected:
    SettingsDuringCreate() {
        program.machine.files().addFile("C:\\large.jpg", std::string(50'000, 'a'));
        program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=C:\\large.jpg\r\nIMAGE=C:\\large.jpg\r\n");
    }
    /// "Edit", "Create", and while it copies the designer is closed; then comes `action`.
    void closeDuringCreateAnd(const std::function<void()>& action) {
        frmConfig& dialog = openInTemplateMode();
        prompter().whenShown(designer(), [this, action] {
            program.machine.answerSaveDialog("C:\\t\\out.scr");
            program.machine.user().clickOn(designer().cmdWriteSCR.hWnd());
            prompter().when([this] { return designer().Label1.caption() == "Appending Images"; },
                            [this, action] {
                                program.machine.user().closeWindow(designer().hWnd());
                                prompter().when([this] { return !designer().loaded(); }, action);
                            });
        });
        program.machine.user().clickOn(dialog.cmdEditTemplate.hWnd());
        program.advance(3000);
    }
    bool packageIsWhole() { return content("C:\\t\\out.scr").ends_with("00000002\r\nTessellarium\r\n"); }
    std::string content(const std::string& path) { return program.machine.files().content(path); }
    frmDesigner& designer() { return program.application().form<frmDesigner>(); }
    Prompter& prompter() { return program.application().form<Prompter>(); }

    int ticks = 0;
};

TEST_F(SettingsDuringCreate, Done_KeepsThemAndLeavesThePackageWhole) {
    closeDuringCreateAnd([this] {
        form().ScrollDissolveSize.setValue(20);
        program.machine.user().clickOn(form().cmdExit.hWnd());
    });
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(stored("Blocks"), "20");
    EXPECT_EQ(stored("ImageListFile"), "show.txt");
    EXPECT_TRUE(packageIsWhole());
    EXPECT_TRUE(program.over());
}

// The copy can't go on before the second designer has been left, and its rows are gone by then.
TEST_F(SettingsDuringCreate, New_OpensADesignerThatSaves_AndTheFirstPackageIsTold) {
    closeDuringCreateAnd([this] {
        prompter().whenShown(designer(), [this] {
            designer().AddRow();
            designer().ListView1.setText(1, 1, "new.jpg");
            designer().lstImagePath.setList(0, "C:\\new.jpg");
            program.machine.answerSaveDialog("C:\\t\\new.txt");
            program.machine.user().clickOn(designer().cmdSave.hWnd());
            prompter().when([this] { return ++ticks == 20; }, // once it has saved
                            [this] { program.machine.user().closeWindow(designer().hWnd()); });
        });
        program.machine.user().clickOn(form().cmdCreateTemplate.hWnd());
    });
    EXPECT_THAT(content("C:\\t\\new.txt"), HasSubstr("IMAGE=C:\\new.jpg"));
    EXPECT_EQ(form().txtImageListFile.text(), "C:\\t\\new.txt");
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_FALSE(packageIsWhole());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_FALSE(program.over());
}

} // namespace
