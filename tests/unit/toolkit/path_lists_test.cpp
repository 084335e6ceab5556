// The lists of drives, folders and files.
#include "support/keys.h"
#include "unit/toolkit/dialog_fixture.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace keys;

TEST_F(Dialog, Lists_BeginAtTheMachinesCurrentFolder) {
    machine.files().addMemoryDrive('D');
    machine.files().setLabel('D', "DATA");
    form.load();
    EXPECT_THAT(textsOf(form.drives), ElementsAre("C:", "D: [DATA]", "T:"));
    EXPECT_EQ(form.drives.drive(), "C:");
    EXPECT_EQ(form.folders.path(), "C:\\Pics");
    EXPECT_THAT(textsOf(form.folders), ElementsAre("C:\\", "Pics", "New", "Old"));
    EXPECT_EQ(form.folders.text(), "Pics");
    EXPECT_EQ(form.files.path(), "C:\\Pics");
    EXPECT_THAT(textsOf(form.files), ElementsAre("a.jpg", "b.gif", "d.bmp")) << "in the file system's order";
    EXPECT_EQ(form.files.fileName(), "");
    EXPECT_THAT(take(), IsEmpty());
}

// A folder of a network, which is on no drive at all, comes to the same.
TEST_F(Dialog, DriveList_CurrentFolderOnNoDriveOfTheList_SelectsNone) {
    machine.files().setHidden("C:\\");
    form.load();
    EXPECT_THAT(textsOf(form.drives), ElementsAre("T:"));
    EXPECT_EQ(form.drives.listIndex(), -1);
    EXPECT_EQ(form.drives.drive(), "");
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(Dialog, DriveList_TakesTheFirstCharacterOnly) {
    machine.files().addMemoryDrive('D');
    form.load();
    form.drives.setDrive("c:\\anything");
    EXPECT_THAT(take(), IsEmpty());
    form.drives.setDrive("d");
    EXPECT_THAT(take(), ElementsAre("drives change"));
    EXPECT_EQ(form.drives.drive(), "D:");
    EXPECT_EQ(failureOf([this] { form.drives.setDrive("Q:"); }), 68);
    EXPECT_EQ(failureOf([this] { form.drives.setDrive(""); }), 68);
    EXPECT_EQ(failureOf([this] { form.drives.setDrive(R"(\\server\share)"); }), 68);
    EXPECT_EQ(form.drives.drive(), "D:");
}

TEST_F(Dialog, DriveList_UserSelectsTheSameDrive_ChangesNothing) {
    machine.files().addMemoryDrive('D');
    form.hidden.setVisible(true);
    form.show();
    form.hidden.setVisible(true);
    machine.user().selectItem(form.drives.hWnd(), 0);
    machine.runUntilIdle();
    EXPECT_THAT(take(), IsEmpty());
    machine.user().selectItem(form.drives.hWnd(), 1);
    machine.runUntilIdle();
    EXPECT_THAT(take(), ElementsAre("drives change"));
}

TEST_F(Dialog, FolderList_AssignedAnotherFolder_RaisesOnce) {
    form.load();
    form.folders.setPath("c:\\pics\\");
    EXPECT_THAT(take(), IsEmpty()) << "the same in other letters";
    form.folders.setPath(R"(C:\pics\old\)");
    EXPECT_THAT(take(), ElementsAre("folders change"));
    EXPECT_EQ(form.folders.path(), "C:\\Pics\\Old");
    EXPECT_THAT(textsOf(form.folders), ElementsAre("C:\\", "Pics", "Old"));
    form.folders.setPath("");
    EXPECT_EQ(form.folders.path(), "C:\\Pics");
    form.folders.setPath("T:");
    EXPECT_EQ(form.folders.path(), "T:\\");
}

TEST_F(Dialog, FolderList_WhatIsNoFolder_FailsAndChangesNothing) {
    machine.files().addMemoryDrive('D');
    machine.files().setReady('D', false);
    form.load();
    EXPECT_EQ(failureOf([this] { form.folders.setPath("C:\\none"); }), 76);
    EXPECT_EQ(failureOf([this] { form.folders.setPath("C:\\Pics\\a.jpg"); }), 76);
    EXPECT_EQ(failureOf([this] { form.folders.setPath("D:\\"); }), 68);
    EXPECT_EQ(failureOf([this] { form.folders.setPath("Q:"); }), 68);
    EXPECT_EQ(form.folders.path(), "C:\\Pics");
    EXPECT_EQ(form.folders.listCount(), 4);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(Dialog, FolderList_DoubleClickEntersAndGoesUp) {
    form.show();
    form.hidden.setVisible(true);
    machine.user().selectItem(form.folders.hWnd(), 3);
    machine.runUntilIdle();
    EXPECT_EQ(form.folders.path(), "C:\\Pics") << "a click alone only selects";
    press(enter);
    EXPECT_EQ(form.folders.path(), "C:\\Pics\\Old");
    machine.user().activateItem(form.folders.hWnd(), 0);
    machine.runUntilIdle();
    EXPECT_EQ(form.folders.path(), "C:\\");
    EXPECT_THAT(take(), ElementsAre("folders change", "folders change"));
    machine.user().activateItem(form.folders.hWnd(), 0);
    machine.runUntilIdle();
    EXPECT_THAT(take(), IsEmpty());
}

TEST(FolderListLevels, BeginWithTheDriveOrWithTheShareOfANetwork) {
    using toolkit::levelsOf;
    EXPECT_THAT(levelsOf("C:\\"), ElementsAre("C:\\"));
    EXPECT_THAT(levelsOf("C:\\Pics\\Old"), ElementsAre("C:\\", "Pics", "Old"));
    EXPECT_THAT(levelsOf(R"(\\server\share)"), ElementsAre(R"(\\server\share)"));
    EXPECT_THAT(levelsOf(R"(\\server\share\Pics\Old)"), ElementsAre(R"(\\server\share)", "Pics", "Old"));
}

TEST_F(Dialog, FileList_AnotherFolder_ListsItAndSelectsNothing) {
    machine.files().addFile(R"(C:\Pics\Old\o.jpg)", "");
    form.load();
    form.files.setListIndex(1);
    EXPECT_EQ(form.files.fileName(), "b.gif");
    take();
    form.files.setPath("C:\\Pics");
    EXPECT_EQ(form.files.fileName(), "b.gif");
    form.files.setPath("C:\\Pics\\Old");
    EXPECT_THAT(textsOf(form.files), ElementsAre("o.jpg"));
    EXPECT_EQ(form.files.fileName(), "");
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(failureOf([this] { form.files.setPath("C:\\none"); }), 76);
}

TEST_F(Dialog, FileList_OfALargeFolder_ShowsItsBeginningWhileTheRestIsLookedFor) {
    addFiles("C:\\Large", 501);
    addFiles("C:\\Small", 499);
    form.show();
    form.hidden.setVisible(true);
    form.files.setPath("C:\\Small");
    EXPECT_THAT(filesWindow().seen(), IsEmpty());
    form.files.setPath("C:\\Large");
    ASSERT_EQ(filesWindow().seen().size(), 500);
    EXPECT_EQ(filesWindow().seen().front().text, "1000.jpg");
    EXPECT_EQ(form.files.listCount(), 501);
    EXPECT_EQ(filesWindow().items().size(), 501);
    EXPECT_EQ(filesWindow().items().back().text, "1500.jpg");
}

TEST_F(Dialog, FolderList_AnotherFolder_IsOnTheScreenBeforeItsFilesAreLookedFor) {
    form.show();
    form.hidden.setVisible(true);
    const auto& window =
        dynamic_cast<const sys::simulated::ListWindow&>(*machine.window(form.folders.hWnd()));
    std::size_t seen = 0;
    form.folders.change = [&] { seen = window.seen().size(); };
    form.folders.setPath("C:\\");
    EXPECT_EQ(seen, 2) << "the drive and its folder";
}

TEST_F(Dialog, FileList_ListingThatBreaksOff_FailsAndChangesNothing) {
    addFiles("C:\\Large", 600);
    form.show();
    form.files.setListIndex(1);
    take();
    for (const std::size_t intact : {0U, 499U, 500U, 599U}) {
        machine.files().breakListing("C:\\Large", intact);
        EXPECT_EQ(failureOf([this] { form.files.setPath("C:\\Large"); }), 57) << intact;
        EXPECT_EQ(form.files.path(), "C:\\Pics");
        EXPECT_THAT(textsOf(form.files), ElementsAre("a.jpg", "b.gif", "d.bmp"));
        EXPECT_EQ(form.files.fileName(), "b.gif");
        EXPECT_EQ(filesWindow().items().size(), 3) << intact;
        EXPECT_EQ(filesWindow().selected(), 1) << intact;
    }
    EXPECT_EQ(filesWindow().seen().size(), 500) << "was on the screen for a while";
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(Dialog, FileList_AnotherPattern_ListsTheFolderAnewUntilTheNextLoad) {
    form.load();
    form.files.setListIndex(1);
    take();
    form.files.setPattern("*.txt");
    EXPECT_THAT(textsOf(form.files), ElementsAre("c.txt"));
    EXPECT_EQ(form.files.pattern(), "*.txt");
    EXPECT_EQ(form.files.listIndex(), -1);
    EXPECT_EQ(form.files.path(), "C:\\Pics");
    EXPECT_THAT(events, IsEmpty());
    form.unload();
    form.load();
    EXPECT_EQ(form.files.listCount(), 3);
}

} // namespace
