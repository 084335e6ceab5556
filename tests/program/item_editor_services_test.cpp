// What the item editor offers beside its fields: previews, help, and a keyboard alone.
#include "editor/frm_play.h"
#include "editor/frm_view.h"
#include "program/item_editor.h"
#include "support/keys.h"

#include <algorithm>

namespace {

using sys::simulated::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

using namespace keys;

// Previews

TEST_F(ItemEditor, PreviewsWithNoFileSelected_DoNothing) {
    open();
    click(edit.cmdView);
    click(edit.cmdPlay);
    EXPECT_FALSE(program.application().form<frmView>().loaded());
    EXPECT_FALSE(program.application().form<frmPlay>().loaded());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(ItemEditor, View_ShowsTheSelectedPictureAndChangesNothing) {
    open();
    select(edit.File1, 0);
    edit.ImageChanged = 0;
    auto& viewer = program.application().form<frmView>();
    bool shown = false;
    float pictureWidth = 0;
    viewer.Ok.gotFocus = [&] {
        shown = viewer.shown() && !edit.enabled();
        pictureWidth = viewer.Image1.picture()->width();
    };
    viewer.load();
    program.machine.user(10).giveFocus(viewer.Ok.hWnd());
    program.machine.user(20).press(enter);
    click(edit.cmdView);
    program.advance(30);
    EXPECT_TRUE(shown);
    EXPECT_EQ(pictureWidth, 60);
    EXPECT_FALSE(viewer.loaded());
    EXPECT_TRUE(edit.shown() && edit.enabled());
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

TEST_F(ItemEditor, View_OfWhatIsNoPicture_TellsAndLeavesNoForm) {
    open();
    select(edit.File1, 1);
    click(edit.cmdView);
    EXPECT_THAT(messages(),
                ElementsAre(ShownMessage{"An Error Has Occurred: Invalid picture", "Tessellarium"}));
    EXPECT_FALSE(program.application().form<frmView>().loaded());
    EXPECT_TRUE(edit.shown());
    program.machine.files().remove("C:\\pics\\b.gif");
    click(edit.cmdView);
    EXPECT_EQ(messages().back(), (ShownMessage{"An Error Has Occurred: File not found", "Tessellarium"}));
}

TEST_F(ItemEditor, Play_PlaysTheSelectedSoundUntilItsPreviewGoes) {
    open();
    select(edit.File2, 0);
    edit.SoundChanged = 0;
    program.machine.user(300).press(escape);
    const std::int64_t start = program.machine.now();
    click(edit.cmdPlay);
    program.advance(2000);
    const auto& played = program.machine.sound().played();
    ASSERT_EQ(played.size(), 1U);
    EXPECT_EQ(played[0].file, "C:\\snd\\a.wav");
    EXPECT_EQ(played[0].begun, start);
    EXPECT_EQ(played[0].over, start + 300);
    EXPECT_TRUE(edit.shown() && edit.enabled());
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

// Help, and those who work without a mouse or without eyes

TEST_F(ItemEditor, Help_CallsTheViewerForItsWindow) {
    open();
    program.machine.platform().forgetCalls();
    program.machine.user().choose(edit.hWnd(), "&Help");
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(),
                ElementsAre("winHelp(" + std::to_string(edit.hWnd()) +
                            ", \"C:\\Program Files\\Tessellarium\\Tessellarium.HLP\", 3)"));
}

TEST_F(ItemEditor, Tab_GoesThroughAllControls) {
    open();
    std::vector<std::string> stops;
    do {
        for (toolkit::Control* control : edit.controls()) {
            if (control->hWnd() == program.machine.focusedWindow()) {
                stops.push_back(control->name());
            }
        }
        press(tab);
    } while (program.machine.focusedWindow() != edit.Drive1.hWnd() && stops.size() < 30);
    EXPECT_THAT(stops, ElementsAre("Drive1", "Dir1", "File1", "cmdResetImage", "cmdView", "Drive2", "Dir2",
                                   "File2", "cmdResetSound", "cmdPlay", "cmboDissolve", "txtComment",
                                   "cmdResetComment", "cmdOk", "cmdCancel"));
}

TEST_F(ItemEditor, Names_StandRightBeforeTheControlsWithoutCaption) {
    open();
    const auto& windows = program.machine.windows().front()->children();
    const auto nameOf = [&](toolkit::Element& control) {
        const auto own =
            std::ranges::find_if(windows, [&](const auto* window) { return window->id() == control.hWnd(); });
        return (*(own - 1))->text();
    };
    EXPECT_EQ(nameOf(edit.Drive1), "Drive of the image");
    EXPECT_EQ(nameOf(edit.Dir1), "Folder of the image");
    EXPECT_EQ(nameOf(edit.File1), "Image File: C:\\pics\\a.bmp");
    EXPECT_EQ(nameOf(edit.Drive2), "Drive of the sound");
    EXPECT_EQ(nameOf(edit.Dir2), "Folder of the sound");
    EXPECT_EQ(nameOf(edit.File2), "Sound File: C:\\snd\\a.wav");
    EXPECT_EQ(nameOf(edit.cmboDissolve), "Dissolve");
    EXPECT_EQ(nameOf(edit.txtComment), "Comment");
}

} // namespace
