// Platform calls on windows, cursor and versions.
#include "contract/contract_test.h"

namespace contract {

namespace {

using sys::topmostPosition;
constexpr std::uint32_t keepSizeAndPosition = sys::keepSize | sys::keepPosition;

class PlatformCalls : public FormTest {
protected:
    sys::Platform& platform = system.platform();
};

} // namespace

TEST_F(PlatformCalls, ShowCursor_Counts) {
    const int first = platform.showCursor(false);
    EXPECT_EQ(platform.showCursor(false), first - 1);
    EXPECT_EQ(platform.showCursor(true), first);
    EXPECT_EQ(platform.showCursor(true), first + 1);
}

TEST_F(PlatformCalls, Topmost_KeepsPlaceAndSize) {
    EXPECT_NE(platform.setWindowPos(form.hWnd(), topmostPosition, 0, 0, 0, 0, keepSizeAndPosition), 0);
    EXPECT_NE(platform.setWindowPos(form.left.hWnd(), topmostPosition, 0, 0, 0, 0, keepSizeAndPosition), 0);
    driver->settle();
    const sys::Size screen = system.screenSize();
    EXPECT_EQ(seen(0, 0), blue);
    EXPECT_EQ(seen(screen.width - 1, screen.height - 1), blue);
    const sys::PixelRect box = TestForm::leftPlace;
    EXPECT_EQ(seen(box.left, box.top), red);
    EXPECT_EQ(seen(box.left - 1, box.top - 1), blue);
    EXPECT_EQ(seen(box.left, box.bottom - 1), red);
    EXPECT_EQ(seen(box.left, box.bottom), blue);
}

TEST_F(PlatformCalls, TopmostForm_StaysInFrontOfOneShownLater) {
    platform.setWindowPos(form.hWnd(), topmostPosition, 0, 0, 0, 0, keepSizeAndPosition);
    application.form<SmallForm>().show();
    driver->settle();
    // NOTE: the mouse tells what lies in front. Under Wine without a window manager the display has an order
    // of its own for top-level windows, and draws the later one.
    driver->moveMouse({30, 50});
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("left move 0 at 150 150"));
}

TEST_F(PlatformCalls, TopmostPictureBox_ComesInFrontOfItsSiblings) {
    const sys::PixelRect box = TestForm::leftPlace;
    form.right.move(twips(box.left), twips(box.top), twips(box.width()), twips(box.height()));
    driver->settle();
    EXPECT_EQ(seen(box.left, box.top), red);
    platform.setWindowPos(form.right.hWnd(), topmostPosition, 0, 0, 0, 0, keepSizeAndPosition);
    driver->settle();
    EXPECT_EQ(seen(box.left, box.top), green);
}

TEST_F(PlatformCalls, SetWindowPos_OfNoWindow_IsRefused) {
    EXPECT_EQ(platform.setWindowPos(0, topmostPosition, 0, 0, 0, 0, keepSizeAndPosition), 0);
}

TEST_F(PlatformCalls, VersionRecord_MustTellItsSize) {
    sys::VersionRecord record;
    EXPECT_EQ(platform.getVersionEx(record), 0);
    record.size = sizeof record;
    EXPECT_NE(platform.getVersionEx(record), 0);
    EXPECT_EQ(record.platformId, 2U); // the NT family
    EXPECT_GE(record.major, 4U);
}

TEST_F(PlatformCalls, MissingSoundWithoutDefault_IsRefused) {
    constexpr std::uint32_t withoutDefault = 2;
    EXPECT_EQ(platform.sndPlaySound(driver->folder() + "\\none.wav", withoutDefault), 0);
}

TEST_F(PlatformCalls, Identity_NamesTheProgramsFolderWithoutABackslash) {
    const sys::ProgramIdentity identity = system.identity();
    EXPECT_FALSE(identity.folder.empty());
    EXPECT_FALSE(identity.folder.ends_with('\\'));
    EXPECT_FALSE(identity.executableName.empty());
    EXPECT_EQ(identity.executableName.find_first_of("\\."), std::string::npos);
}

} // namespace contract
