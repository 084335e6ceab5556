#include "support/keys.h"
#include "support/wav_file.h"
#include "system/simulated/machine.h"
#include "unit/system/simulated/recording_input.h"

#include <gmock/gmock.h>

namespace {

using sys::simulated::Machine;
using testing::ElementsAre;
using testing::IsEmpty;

class SimulatedPlayer : public testing::Test {
protected:
    SimulatedPlayer() {
        machine.connect(input);
        form = machine.createForm({"Form", {0, 0, 0}});
        form->show(true);
        player = machine.createMediaPlayer(*form);
        add("a.wav", wavFile(1500));
    }

    void add(const std::string& name, const std::string& content) {
        machine.files().addFile("C:\\" + name, content);
    }
    void play(const std::string& name) {
        player->open("C:\\" + name);
        player->play();
    }
    const std::vector<sys::simulated::PlayedSound>& played() { return machine.sound().played(); }

    RecordingInput input;
    Machine machine;
    std::unique_ptr<sys::Canvas> form;
    std::unique_ptr<sys::MediaPlayer> player;
    const std::int64_t start = machine.now();
};

TEST_F(SimulatedPlayer, Wav_PlaysAsLongAsItsHeaderSays) {
    play("a.wav");
    machine.advance(1499);
    EXPECT_TRUE(player->playing());
    machine.advance(1);
    EXPECT_FALSE(player->playing());
}

TEST_F(SimulatedPlayer, WavThatBreaksOff_PlaysWhatThereIs) {
    add("half.wav", wavFile(1000).substr(0, 44 + 44100));
    play("half.wav");
    machine.advance(499);
    EXPECT_TRUE(player->playing());
    machine.advance(1);
    EXPECT_FALSE(player->playing());
}

TEST_F(SimulatedPlayer, WavWithOtherChunks_PlaysItsData) {
    std::string file = wavFile(1000);
    file.insert(36, std::string("LIST\x03\0\0\0abc\0", 12)); // an odd size is rounded up
    add("list.wav", file);
    play("list.wav");
    machine.advance(999);
    EXPECT_TRUE(player->playing());
    machine.advance(1);
    EXPECT_FALSE(player->playing());
}

TEST_F(SimulatedPlayer, BrokenFile_HasEnded) {
    add("empty.wav", "");
    add("text.wav", "no sound at all, though it is longer than a header of a WAV would be");
    add("header.wav", wavFile(1000).substr(0, 30));
    add("silent.wav", wavFile(0));
    for (const char* name : {"empty.wav", "text.wav", "header.wav", "silent.wav", "none.wav"}) {
        play(name);
        EXPECT_FALSE(player->playing()) << name;
        EXPECT_EQ(machine.files().openFiles(), 0) << name;
    }
    EXPECT_THAT(played(), IsEmpty());
}

TEST_F(SimulatedPlayer, LengthThatWasSet_GoesBeforeTheContent) {
    add("a.mp3", "what only a decoder understands");
    machine.sound().setLength("c:\\A.mp3", 200);
    play("a.mp3");
    machine.advance(199);
    EXPECT_TRUE(player->playing());
    machine.advance(1);
    EXPECT_FALSE(player->playing());
}

TEST_F(SimulatedPlayer, File_IsOpenUntilAnotherNameIs) {
    play("a.wav");
    machine.advance(5000);
    EXPECT_EQ(machine.files().openFiles(), 1);
    player->open("");
    EXPECT_EQ(machine.files().openFiles(), 0);
    machine.files().remove("C:\\a.wav");
}

TEST_F(SimulatedPlayer, PlayerThatGoes_LetsItsFileGo) {
    play("a.wav");
    machine.advance(300);
    player.reset();
    EXPECT_EQ(machine.files().openFiles(), 0);
    EXPECT_EQ(played().at(0).over, start + 300);
}

TEST_F(SimulatedPlayer, Play_WhilePlaying_ChangesNothing) {
    play("a.wav");
    machine.advance(1000);
    player->play();
    machine.advance(500);
    EXPECT_FALSE(player->playing());
    EXPECT_EQ(played().size(), 1U);
}

TEST_F(SimulatedPlayer, Play_AfterTheEnd_BeginsAnew) {
    play("a.wav");
    machine.advance(2000);
    player->play();
    machine.advance(1499);
    EXPECT_TRUE(player->playing());
}

TEST_F(SimulatedPlayer, Sounds_ArePutDownWithTheirTimes) {
    add("b.wav", wavFile(100));
    play("a.wav");
    machine.advance(700);
    play("b.wav");
    machine.advance(200);
    player->play();
    machine.advance(50);
    player->stop();
    EXPECT_FALSE(player->playing());
    ASSERT_EQ(played().size(), 3U);
    EXPECT_EQ(played()[0].file, "C:\\a.wav");
    EXPECT_EQ(played()[0].begun, start);
    EXPECT_EQ(played()[0].over, start + 700) << "cut off";
    EXPECT_EQ(played()[1].file, "C:\\b.wav");
    EXPECT_EQ(played()[1].over, start + 800) << "played to its end";
    EXPECT_EQ(played()[2].over, start + 950) << "stopped";
}

TEST_F(SimulatedPlayer, MachineWithoutDevice_PlaysNothing) {
    machine.sound().setPresent(false);
    play("a.wav");
    EXPECT_FALSE(player->playing());
    EXPECT_EQ(machine.files().openFiles(), 0);
    EXPECT_THAT(played(), IsEmpty());
}

TEST_F(SimulatedPlayer, DeviceThatGoes_EndsTheSound) {
    play("a.wav");
    machine.sound().setPresent(false);
    EXPECT_FALSE(player->playing());
    player->play();
    EXPECT_EQ(played().size(), 1U);
}

TEST_F(SimulatedPlayer, NothingOfIt_IsOnTheScreen) {
    player->place({0, 0, 1500, 1500});
    EXPECT_NE(machine.windowAt({5, 5}), player->handle());
}

TEST_F(SimulatedPlayer, Focus_KeysOfTheUserReachItBeforeItTellsOfIt) {
    machine.user().giveFocus(player->handle());
    machine.user().press('A');
    EXPECT_EQ(machine.focusedWindow(), form->handle());
    input.handler = [&](const std::string& event) {
        input.events.back() = event + (machine.focusedWindow() == player->handle() ? " in player" : "");
    };
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), ElementsAre("key 65 in player", "character 97 in player", "focus in player"));
    form->focus();
    machine.user().press(keys::function1);
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), ElementsAre("key 112"));
}

TEST_F(SimulatedPlayer, Focus_OfAControlThatIsGone_IsNone) {
    machine.user().giveFocus(player->handle());
    player.reset();
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), IsEmpty());
    EXPECT_EQ(machine.focusedWindow(), form->handle());
}

TEST_F(SimulatedPlayer, PlayerThatGoes_LeavesTheFocusToItsForm) {
    machine.user().giveFocus(player->handle());
    machine.runUntilIdle();
    player.reset();
    EXPECT_EQ(machine.focusedWindow(), form->handle());
}

TEST_F(SimulatedPlayer, AnotherForm_TakesTheKeyboardFromIt) {
    machine.user().giveFocus(player->handle());
    machine.runUntilIdle();
    const auto other = machine.createForm({"Other", {0, 0, 0}});
    other->show(true);
    EXPECT_EQ(machine.focusedWindow(), other->handle());
}

} // namespace
