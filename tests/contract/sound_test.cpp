#include "contract/contract_test.h"

#include "support/wav_file.h"
#include "toolkit/media_player.h"
#include "toolkit/timer.h"

namespace contract {

namespace {

using sys::Access;
using toolkit::PlayState;

class SoundForm : public toolkit::Form {
public:
    SoundForm() : Form({.name = "SoundForm", .caption = "Contract Sound Form", .width = twips(100)}) {}
    toolkit::MediaPlayer player{*this, {.name = "player"}};
    /// Keeps the clock going where nothing else happens.
    toolkit::Timer timer{*this, {.interval = 20}};
};

/// A machine with a sound device.
class Sound : public MachineTest {
protected:
    Sound() {
        form.load();
        write("long.wav", wavFile(10'000));
        write("short.wav", wavFile(300));
    }

    std::string path(const std::string& name) const { return folder + '\\' + name; }
    void write(const std::string& name, const std::string& content) {
        const auto file = system.files().open(path(name), Access::write);
        file->write(content.data(), content.size());
    }
    void remove(const std::string& name) { system.files().remove(path(name)); }
    void take(const std::string& name) { player.setFileName(path(name)); }

    std::string folder = driver->folder();
    SoundForm& form = application.form<SoundForm>();
    toolkit::MediaPlayer& player = form.player;
};

} // namespace

TEST_F(Sound, FileName_PlaysToTheEndOfTheSound) {
    EXPECT_EQ(player.playState(), PlayState::closed);
    const std::int64_t start = system.now();
    take("short.wav");
    EXPECT_EQ(player.playState(), PlayState::playing);
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
    EXPECT_TRUE(driver->waitUntil([&] { return player.playState() != PlayState::playing; }));
    EXPECT_EQ(player.playState(), PlayState::stopped);
    EXPECT_GE(system.now() - start, 300);
    EXPECT_LE(system.now() - start, 5000);
}

/// As an extracted one has it, whose last block runs on into what follows in its package.
TEST_F(Sound, SoundWithForeignBytesBehindIt_PlaysAndEnds) {
    write("tail.wav", wavFile(300) + std::string(8192, '\x5A'));
    take("tail.wav");
    EXPECT_EQ(player.playState(), PlayState::playing);
    EXPECT_TRUE(driver->waitUntil([&] { return player.playState() == PlayState::stopped; }));
}

TEST_F(Sound, LongSound_KeepsPlaying) {
    take("long.wav");
    driver->letPass(1000);
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(Sound, WithoutAutoStart_WaitsForPlay) {
    player.setAutoStart(false);
    take("long.wav");
    driver->letPass(300);
    EXPECT_EQ(player.playState(), PlayState::stopped);
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(Sound, Stop_StopsAndPlayBeginsAnew) {
    take("short.wav");
    player.stop();
    EXPECT_EQ(player.playState(), PlayState::stopped);
    for (int times = 0; times < 2; ++times) {
        player.play();
        EXPECT_EQ(player.playState(), PlayState::playing);
        EXPECT_TRUE(driver->waitUntil([&] { return player.playState() == PlayState::stopped; }));
    }
}

TEST_F(Sound, Pause_HoldsTheSoundWhereItIs) {
    take("long.wav");
    EXPECT_NEAR(static_cast<double>(player.length().value_or(0)), 10'000, 100);
    ASSERT_TRUE(driver->waitUntil([&] { return player.position() > 400; }));
    player.pause();
    EXPECT_EQ(player.playState(), PlayState::paused);
    const std::int64_t held = player.position();
    EXPECT_GE(held, 400);
    driver->letPass(1000);
    EXPECT_EQ(player.playState(), PlayState::paused);
    EXPECT_NEAR(static_cast<double>(player.position()), static_cast<double>(held), 100);
    player.play();
    EXPECT_EQ(player.playState(), PlayState::playing);
    EXPECT_TRUE(driver->waitUntil([&] { return player.position() > held + 300; }));
    player.stop();
    EXPECT_EQ(player.position(), 0);
}

TEST_F(Sound, MoveTo_PlaysFromThereToTheEnd) {
    take("long.wav");
    const std::int64_t start = system.now();
    player.moveTo(9'000);
    EXPECT_GE(player.position(), 8'900);
    EXPECT_TRUE(driver->waitUntil([&] { return player.playState() == PlayState::stopped; }));
    EXPECT_LT(system.now() - start, 8'000);
    player.moveTo(5'000);
    EXPECT_EQ(player.playState(), PlayState::playing) << "a stopped sound plays from there";
    player.pause();
    player.moveTo(2'000);
    EXPECT_EQ(player.playState(), PlayState::paused);
    EXPECT_NEAR(static_cast<double>(player.position()), 2'000, 100);
}

TEST_F(Sound, ClearedName_LetsTheFileGoAtOnce) {
    for (int times = 0; times < 3; ++times) {
        take("long.wav");
        EXPECT_EQ(player.playState(), PlayState::playing);
        player.setFileName("");
        EXPECT_EQ(player.playState(), PlayState::closed);
        remove("long.wav");
        write("long.wav", wavFile(10'000));
    }
}

TEST_F(Sound, OtherName_LetsTheFormerFileGoAtOnce) {
    take("long.wav");
    take("short.wav");
    remove("long.wav");
    EXPECT_EQ(player.playState(), PlayState::playing);
    write("long.wav", wavFile(10'000));
}

TEST_F(Sound, NameClearedAtTheEnd_LetsTheFileGoAtOnce) {
    take("short.wav");
    EXPECT_TRUE(driver->waitUntil([&] { return player.playState() == PlayState::stopped; }));
    player.setFileName("");
    remove("short.wav");
}

TEST_F(Sound, RewrittenFile_IsPlayedAsItIsNow) {
    take("short.wav");
    player.setFileName("");
    write("short.wav", wavFile(10'000));
    take("short.wav");
    driver->letPass(1500);
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(Sound, FileOpenedForWriting_IsRewrittenInPlaceOnceTheNameIsCleared) {
    take("long.wav");
    player.setFileName("");
    const std::string content = wavFile(200);
    const auto file = system.files().open(path("long.wav"), Access::readWrite);
    file->write(content.data(), content.size());
}

TEST_F(Sound, WhatCannotBePlayed_HasEnded) {
    write("empty.wav", "");
    write("text.wav", "this is no sound, whatever its name says; it is only some lines of text");
    write("cut.wav", wavFile(1000).substr(0, 30));
    write("text.mp3", "nor is this");
    driver->addFolder(path("folder.wav"));
    for (const char* name : {"none.wav", "empty.wav", "text.wav", "cut.wav", "text.mp3", "folder.wav",
                             "none\\a.wav", "?*.wav"}) {
        take(name);
        player.play();
        EXPECT_TRUE(driver->waitUntil([&] { return player.playState() == PlayState::stopped; })) << name;
    }
    for (const char* name : {"empty.wav", "text.wav", "cut.wav", "text.mp3"}) {
        take(name);
        player.setFileName("");
        remove(name);
    }
}

TEST_F(Sound, SoundAfterABrokenOne_Plays) {
    write("text.wav", "this is no sound");
    take("text.wav");
    take("long.wav");
    EXPECT_EQ(player.playState(), PlayState::playing);
}

TEST_F(Sound, Player_IsNotSeenAndHasNoFocus) {
    form.show();
    driver->settle();
    take("long.wav");
    driver->settle();
    int keys = 0;
    form.keyDown = [&](int, int) { ++keys; };
    driver->pressKey('A');
    driver->settle();
    EXPECT_EQ(keys, 1);
}

TEST_F(Sound, UnloadOfTheForm_LetsTheFileGo) {
    take("long.wav");
    form.unload();
    remove("long.wav");
}

} // namespace contract
