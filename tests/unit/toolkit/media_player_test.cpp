// The media control, whose sounds begin and end by the machine's clock.
#include "toolkit/media_player.h"

#include "support/wav_file.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::PlayState;

class PlayerForm : public PlainForm {
public:
    PlayerForm() : PlayerForm(false) {}
    toolkit::MediaPlayer player{*this, {.name = "player"}};

protected:
    explicit PlayerForm(bool keyPreview)
        : PlainForm({.name = "PlayerForm", .width = 300, .height = 300, .keyPreview = keyPreview}) {}
};

class PreviewingPlayerForm : public PlayerForm {
public:
    PreviewingPlayerForm() : PlayerForm(true) {}
};

/// Keeps the sounds that a program's observer is told of.
struct SoundWatcher : toolkit::Observer {
    void moved(const toolkit::Element& /*element*/) override {}
    void visibleAssigned(const toolkit::Element& /*element*/, bool /*changed*/) override {}
    void painted(const toolkit::Element& /*element*/, const toolkit::PaintCall& /*call*/,
                 const sys::Picture* /*picture*/) override {}
    void mediaPlayed(const std::string& fileName) override { sounds.push_back(fileName); }
    std::vector<std::string> sounds;
};

class MediaPlayerControl : public ToolkitFixture {
protected:
    MediaPlayerControl() {
        machine.files().addFile("C:\\a.wav", wavFile(1000));
        machine.files().addFile("C:\\b.wav", wavFile(500));
        form.show();
        application.setObserver(&watcher);
    }
    ~MediaPlayerControl() override { application.setObserver(nullptr); }

    void logKeysOf(toolkit::Element& element) {
        const std::string name = element.name();
        element.gotFocus = [=, this] { log(name + " focus"); };
        element.keyDown = [=, this](std::int16_t key, std::int16_t shift) {
            log(name + " key " + std::to_string(key) + " " + std::to_string(shift));
        };
        element.keyPress = [=, this](std::int16_t character) {
            log(name + " character " + std::to_string(character));
        };
    }
    const std::vector<sys::simulated::PlayedSound>& played() { return machine.sound().played(); }

    SoundWatcher watcher;
    PlayerForm& form = application.form<PlayerForm>();
    toolkit::MediaPlayer& player = form.player;
};

TEST_F(MediaPlayerControl, WithoutAFileName_IsClosed) {
    EXPECT_EQ(player.playState(), PlayState::closed);
    player.play();
    player.stop();
    EXPECT_EQ(player.playState(), PlayState::closed);
    EXPECT_EQ(static_cast<int>(PlayState::closed), 6);
}

TEST_F(MediaPlayerControl, FileName_StartsByItselfAndPlaysToItsEnd) {
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(player.fileName(), "C:\\a.wav");
    EXPECT_EQ(static_cast<int>(player.playState()), 2);
    machine.advance(999);
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(1);
    EXPECT_EQ(static_cast<int>(player.playState()), 0);
}

TEST_F(MediaPlayerControl, PlayBehindAFileName_IsHarmless) {
    player.setFileName("C:\\a.wav");
    machine.advance(600);
    player.play();
    machine.advance(400);
    EXPECT_EQ(player.playState(), PlayState::stopped);
    EXPECT_EQ(played().size(), 1U);
}

TEST_F(MediaPlayerControl, WithoutAutoStart_WaitsForPlay) {
    EXPECT_TRUE(player.autoStart());
    player.setAutoStart(false);
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(player.playState(), PlayState::stopped);
    EXPECT_THAT(played(), IsEmpty());
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(MediaPlayerControl, NotLive_PlaysAllTheSame) {
    EXPECT_FALSE(player.live());
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(MediaPlayerControl, NewFileName_CutsTheSoundOffAndLetsItsFileGo) {
    player.setFileName("C:\\a.wav");
    player.setFileName("C:\\b.wav");
    machine.files().remove("C:\\a.wav");
    machine.advance(499);
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(1);
    EXPECT_EQ(player.playState(), PlayState::stopped);
}

TEST_F(MediaPlayerControl, EmptyFileName_ClosesAndLetsTheFileGo) {
    player.setFileName("C:\\a.wav");
    player.setFileName("");
    EXPECT_EQ(player.playState(), PlayState::closed);
    machine.files().remove("C:\\a.wav");
    machine.files().addFile("C:\\a.wav", wavFile(200));
    player.setFileName("C:\\a.wav");
    machine.advance(199);
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(1);
    EXPECT_EQ(player.playState(), PlayState::stopped);
}

TEST_F(MediaPlayerControl, SameFileName_PlaysItAnew) {
    player.setFileName("C:\\a.wav");
    machine.advance(900);
    player.setFileName("C:\\a.wav");
    machine.advance(900);
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(MediaPlayerControl, Stop_Stops) {
    player.setFileName("C:\\a.wav");
    player.stop();
    EXPECT_EQ(player.playState(), PlayState::stopped);
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(MediaPlayerControl, Pause_HoldsTheSoundAndPlayGoesOnFromThere) {
    player.setFileName("C:\\a.wav");
    machine.advance(300);
    player.pause();
    EXPECT_EQ(static_cast<int>(player.playState()), 1);
    machine.advance(5000);
    EXPECT_EQ(player.playState(), PlayState::paused);
    EXPECT_EQ(player.position(), 300);
    player.pause();
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(699);
    EXPECT_EQ(player.position(), 999);
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(1);
    EXPECT_EQ(player.playState(), PlayState::stopped);
    EXPECT_EQ(player.position(), 0);
}

TEST_F(MediaPlayerControl, Stop_OfAPausedSound_LeavesItAtItsBeginning) {
    player.setFileName("C:\\a.wav");
    machine.advance(300);
    player.pause();
    player.stop();
    EXPECT_EQ(player.playState(), PlayState::stopped);
    player.play();
    EXPECT_EQ(player.position(), 0);
    player.stop();
    player.pause();
    EXPECT_EQ(player.playState(), PlayState::stopped) << "nothing that could be held";
}

TEST_F(MediaPlayerControl, MoveTo_GoesOnPlayingOrStaysPaused) {
    player.setFileName("C:\\a.wav");
    player.moveTo(600);
    EXPECT_EQ(player.position(), 600);
    machine.advance(399);
    EXPECT_EQ(player.playState(), PlayState::playing);
    machine.advance(1);
    EXPECT_EQ(player.playState(), PlayState::stopped);
    player.moveTo(100);
    EXPECT_EQ(player.playState(), PlayState::playing) << "a stopped sound plays from there";
    player.pause();
    player.moveTo(5000);
    EXPECT_EQ(player.playState(), PlayState::paused);
    EXPECT_EQ(player.position(), 1000);
    player.moveTo(-1);
    EXPECT_EQ(player.position(), 0);
}

TEST_F(MediaPlayerControl, Length_IsThatOfAFileThatCanBePlayed) {
    EXPECT_EQ(player.length(), std::nullopt);
    player.moveTo(10);
    player.pause();
    EXPECT_EQ(player.position(), 0);
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(player.length(), 1000);
    player.setFileName("C:\\none.wav");
    EXPECT_EQ(player.length(), std::nullopt);
    player.moveTo(10);
    EXPECT_EQ(player.playState(), PlayState::stopped);
}

TEST_F(MediaPlayerControl, WhatCannotBePlayed_HasEnded) {
    machine.files().addFile("C:\\broken.wav", "RIFF");
    machine.files().failTransfers("C:\\b.wav");
    for (const char* name :
         {"C:\\none.wav", "C:\\broken.wav", "C:\\b.wav", "Q:\\a.wav", "C:\\", R"(\\host\a)"}) {
        player.setFileName(name);
        player.play();
        EXPECT_EQ(player.playState(), PlayState::stopped) << name;
    }
    machine.sound().setPresent(false);
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(player.playState(), PlayState::stopped);
}

TEST_F(MediaPlayerControl, WithoutASound_NothingIsMade) {
    player.setFileName("");
    player.play();
    player.stop();
    EXPECT_EQ(player.playState(), PlayState::closed);
    EXPECT_THAT(machine.windows().front()->children(), IsEmpty());
    player.setFileName("C:\\a.wav");
    EXPECT_EQ(machine.windows().front()->children().size(), 1U);
}

TEST_F(MediaPlayerControl, UnloadOfItsForm_EndsTheSoundAndTheNextLoadIsTheDesign) {
    player.setFileName("C:\\a.wav");
    player.setAutoStart(false);
    player.setLive(true);
    form.unload();
    machine.files().remove("C:\\a.wav");
    form.load();
    EXPECT_EQ(player.fileName(), "");
    EXPECT_EQ(player.playState(), PlayState::closed);
    EXPECT_TRUE(player.autoStart());
    EXPECT_FALSE(player.live());
}

TEST_F(MediaPlayerControl, Observer_IsToldOfEachSoundOnce) {
    player.setFileName("C:\\a.wav");
    player.play();
    player.setFileName("");
    EXPECT_THAT(watcher.sounds, ElementsAre("C:\\a.wav"));
    player.play();
    EXPECT_THAT(watcher.sounds, ElementsAre("C:\\a.wav", ""));
    player.setAutoStart(false);
    player.setFileName("C:\\b.wav");
    EXPECT_EQ(watcher.sounds.size(), 2U);
    player.play();
    EXPECT_THAT(watcher.sounds, ElementsAre("C:\\a.wav", "", "C:\\b.wav"));
}

TEST_F(MediaPlayerControl, Focus_RaisesGotFocusAndTheKeysAreItsOwn) {
    player.setFileName("C:\\a.wav");
    logKeysOf(player);
    logKeysOf(form);
    machine.user().giveFocus(player.hWnd());
    machine.runUntilIdle();
    machine.user().press('A', sys::shiftKey);
    machine.runUntilIdle();
    EXPECT_THAT(events, ElementsAre("player focus", "player key 65 1", "player character 65"));
}

TEST_F(MediaPlayerControl, SetFocusOfTheForm_TakesTheKeysBack) {
    player.setFileName("C:\\a.wav");
    player.gotFocus = [this] { form.setFocus(); };
    machine.user().giveFocus(player.hWnd());
    machine.runUntilIdle();
    EXPECT_EQ(machine.focusedWindow(), form.hWnd());
}

TEST_F(MediaPlayerControl, KeyPreviewOfTheForm_GoesFirst) {
    auto& previewing = application.form<PreviewingPlayerForm>();
    previewing.show();
    previewing.player.setFileName("C:\\a.wav");
    logKeysOf(previewing);
    logKeysOf(previewing.player);
    machine.user().giveFocus(previewing.player.hWnd());
    machine.user().press('7');
    machine.runUntilIdle();
    EXPECT_THAT(events, ElementsAre("PlayerForm key 55 0", "player key 55 0", "PlayerForm character 55",
                                    "player character 55", "player focus"));
}

TEST_F(MediaPlayerControl, FailureInItsHandler_IsTheDefaultReport) {
    player.setFileName("C:\\a.wav");
    player.gotFocus = [] { throw Failure(FailureCode::typeMismatch); };
    machine.user().giveFocus(player.hWnd());
    EXPECT_EQ(exitCodeOf([this] { machine.runUntilIdle(); }), 1);
}

} // namespace
