// The sound modes: what the show plays, and how sounds and pictures wait for each other.
#include "startup/shared_state.h"
#include "support/package.h"
#include "support/show_recorder.h"
#include "support/wav_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using toolkit::PlayState;

constexpr const char* extracted = "T:\\Tessellarium\\Tessellarium.wav";

/// A show of pictures "a.bmp" and "b.bmp" every two seconds, with sounds beside them: "one.wav" of 700 ms,
/// "two.wav" of 1800, "long.wav" of 10 seconds.
class ShowSound : public testing::Test {
protected:
    ShowSound() {
        for (const char* name : {"a.bmp", "b.bmp"}) {
            program.addPicture(path(name), {10, 10});
        }
        addSound("one.wav", 700);
        addSound("two.wav", 1800);
        addSound("long.wav", 10'000);
        program.setting("ImageInterval", "2");
    }

    static std::string path(const std::string& name) { return "C:\\t\\" + name; }
    void addSound(const std::string& name, int milliseconds) {
        program.machine.files().addFile(path(name), wavFile(milliseconds));
    }
    void start(const std::vector<std::string>& lines) {
        program.useTemplate(lines);
        program.start("/s");
    }
    /// A packaged show without pictures, of sounds so many milliseconds long; 0 for none.
    void startPackage(std::int16_t soundMode, const std::vector<int>& lengths) {
        Package package{.soundMode = soundMode};
        for (const int length : lengths) {
            package.rows.push_back(length == 0 ? PackageRow{}
                                               : PackageRow{.sound = wavFile(length), .soundExt = "wav"});
        }
        installPackage(program, package.bytes());
        program.start("/s");
    }
    void setTransitionsOf5Seconds() {
        program.setting("DissolveType", "Left To Right");
        program.setting("DissolveDelay", "100");
        program.setting("Blocks", "50");
    }
    MainForm& form() { return program.form(); }
    PlayState playState() { return form().MediaPlayer1.playState(); }
    /// What was given to the media player and could be played.
    std::vector<std::string> played() {
        std::vector<std::string> names;
        for (const auto& sound : program.machine.sound().played()) {
            names.push_back(sound.file.substr(sound.file.rfind('\\') + 1));
        }
        return names;
    }
    /// In milliseconds from the start of the show.
    std::int64_t begun(std::size_t sound) { return program.machine.sound().played().at(sound).begun - began; }
    std::int64_t over(std::size_t sound) { return program.machine.sound().played().at(sound).over - began; }
    std::int64_t time() { return program.machine.now() - began; }
    long steps() { return program.traced("E: MainForm LoadImage"); }
    std::vector<std::string> plainSounds() {
        std::vector<std::string> calls;
        for (const std::string& call : program.machine.platform().calls()) {
            if (call.starts_with("sndPlaySound")) {
                calls.push_back(call);
            }
        }
        return calls;
    }
    /// Lets time pass until the show has made so many steps altogether; the time when it had.
    std::int64_t stepped(long count) {
        while (steps() < count && time() < 60'000) {
            program.advance(10);
        }
        return time();
    }
    bool playerIsMade() {
        return !program.machine.windows().empty() &&
               std::ranges::any_of(program.machine.windows().front()->children(), [](const auto* window) {
                   return window->kind() == sys::simulated::WindowKind::mediaPlayer;
               });
    }

    Program program;
    std::int64_t began = program.machine.now();
};

// No sound mode

TEST_F(ShowSound, NoModeLine_PlaysNothingAndMakesNoPlayer) {
    start({"IMAGE=a.bmp", "SOUND=one.wav"});
    program.advance(10'000);
    EXPECT_EQ(steps(), 5);
    EXPECT_THAT(played(), IsEmpty());
    EXPECT_THAT(plainSounds(), IsEmpty());
    EXPECT_FALSE(playerIsMade());
    EXPECT_FALSE(form().Timer2.enabled());
}

// SOUNDSYNC=1

TEST_F(ShowSound, SoundWithImage_PlaysPlainlyAndHoldsNothing) {
    start({"SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=long.wav", "IMAGE=b.bmp", "SOUND=one.wav"});
    program.advance(4000);
    EXPECT_EQ(steps(), 2);
    EXPECT_THAT(plainSounds(),
                ElementsAre("sndPlaySound(\"C:\\t\\long.wav\", 1)", "sndPlaySound(\"C:\\t\\one.wav\", 1)"));
    EXPECT_EQ(program.machine.platform().playingSound(), "C:\\t\\one.wav") << "the first is cut off";
    EXPECT_THAT(played(), IsEmpty());
    EXPECT_FALSE(playerIsMade());
}

TEST_F(ShowSound, SoundWithImage_BeginsBehindTheTransition) {
    setTransitionsOf5Seconds();
    start({"SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=one.wav"});
    ShowRecorder recorder(program);
    recorder.afterPaint = [&] { EXPECT_THAT(plainSounds(), IsEmpty()); };
    stepped(1);
    EXPECT_EQ(recorder.paints.size(), 50U);
    EXPECT_THAT(plainSounds(), ElementsAre("sndPlaySound(\"C:\\t\\one.wav\", 1)"));
}

// SOUNDSYNC=2

TEST_F(ShowSound, ImageWaitsSound_HoldsThePictureUntilTheTickBehindTheSound) {
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=two.wav", "IMAGE=b.bmp", "SOUND=one.wav"});
    EXPECT_EQ(stepped(1), 500) << "whatever the interval";
    EXPECT_EQ(begun(0), 500);
    program.advance(1500);
    EXPECT_EQ(steps(), 1) << "at 2000, as the sound is over at 2300";
    EXPECT_EQ(shared.ImageIndex, 0);
    EXPECT_EQ(stepped(2), 2500);
    EXPECT_EQ(stepped(3), 3500) << "its sound is over at 3200";
    EXPECT_THAT(played(), ElementsAre("two.wav", "one.wav", "two.wav"));
    EXPECT_EQ(over(0), 2300) << "nothing was cut off";
    EXPECT_EQ(over(1), 3200);
}

TEST_F(ShowSound, ImageWaitsSound_HeldTickChangesNothing) {
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=long.wav", "a comment"});
    stepped(1);
    program.trace.clear();
    program.advance(500);
    EXPECT_THAT(program.trace,
                ElementsAre("S: MainForm Timer1", "S: MainForm LoadImage", "E: MainForm Timer1"));
    EXPECT_EQ(form().ImageLoading, 0);
    EXPECT_TRUE(form().Label1.visible());
    EXPECT_EQ(form().Label2.caption(), "Play");
}

TEST_F(ShowSound, ImageWaitsSound_SoundThatEndsAtTheTick_LetsItPass) {
    addSound("half.wav", 500);
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=half.wav"});
    EXPECT_EQ(stepped(1), 500);
    EXPECT_EQ(stepped(2), 1000);
}

TEST_F(ShowSound, ImageWaitsSound_WithoutASound_MovesOnAtTheNextTick) {
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "IMAGE=b.bmp", "SOUND=one.wav"});
    EXPECT_EQ(stepped(1), 500);
    EXPECT_EQ(playState(), PlayState::closed);
    EXPECT_EQ(form().Label2.caption(), "Play");
    EXPECT_EQ(stepped(2), 1000);
    EXPECT_EQ(stepped(3), 2000);
    EXPECT_EQ(playState(), PlayState::closed) << "the item without a sound clears the name";
}

TEST_F(ShowSound, ImageWaitsSound_MissingOrBrokenSound_HoldsNothing) {
    program.machine.files().addFile(path("broken.wav"), "no sound");
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=none.wav", "IMAGE=b.bmp", "SOUND=broken.wav"});
    for (long count = 1; count <= 5; ++count) {
        EXPECT_EQ(stepped(count), 500 * count);
    }
    EXPECT_THAT(played(), IsEmpty());
    EXPECT_THAT(program.trace, Not(Contains(HasSubstr("Error"))));
    EXPECT_THAT(program.machine.messageBoxes(), IsEmpty());
}

TEST_F(ShowSound, ImageWaitsSound_FailedItem_StartsNoSoundAndTheNextTickMovesOn) {
    start({"SOUNDSYNC=2", "IMAGE=none.bmp", "SOUND=long.wav", "IMAGE=b.bmp"});
    program.advance(1000);
    EXPECT_EQ(shared.ImageIndex, 1);
    EXPECT_THAT(played(), IsEmpty());
}

TEST_F(ShowSound, ImageWaitsSound_DeviceThatGoes_LetsTheShowGoOn) {
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=long.wav", "IMAGE=b.bmp", "SOUND=long.wav"});
    stepped(1);
    program.machine.sound().setPresent(false);
    EXPECT_EQ(stepped(2), 1000);
    EXPECT_EQ(stepped(3), 1500);
}

TEST_F(ShowSound, ImageWaitsSound_SoundIsThatOfTheItem_InRandomOrderToo) {
    program.setting("ImageOrderRandom", "1");
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=one.wav", "IMAGE=b.bmp", "SOUND=two.wav"});
    for (long count = 1; count <= 6; ++count) {
        stepped(count);
        EXPECT_EQ(played().back(), shared.ImageIndex == 0 ? "one.wav" : "two.wav");
    }
}

TEST_F(ShowSound, ImageWaitsSound_EndOfTheShow_LeavesTheSoundToTheProcess) {
    start({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=long.wav"});
    stepped(1);
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(over(0), 10'500) << "not stopped";
}

// SOUNDASYNC

TEST_F(ShowSound, SoundList_BeginsASecondBehindTheFirstStep) {
    start({"SOUNDASYNC", "SOUND=one.wav", "IMAGE=a.bmp"});
    EXPECT_EQ(stepped(1), 2000);
    EXPECT_THAT(played(), IsEmpty());
    program.advance(999);
    EXPECT_THAT(played(), IsEmpty());
    program.advance(1);
    EXPECT_THAT(played(), ElementsAre("one.wav"));
}

TEST_F(ShowSound, SoundList_IsPlayedInOrderAndStartsOver) {
    start({"SOUNDASYNC", "SOUND=one.wav", "SOUND=two.wav", "IMAGE=a.bmp", "SOUND=long.wav"});
    program.advance(28'000);
    EXPECT_THAT(played(), ElementsAre("one.wav", "two.wav", "long.wav", "one.wav", "two.wav", "long.wav"));
    EXPECT_EQ(begun(0), 3000);
    EXPECT_EQ(begun(1), 4000) << "the first tick behind 3700";
    EXPECT_EQ(begun(2), 6000) << "behind 5800";
    EXPECT_EQ(begun(3), 16'000) << "the sound that ends at the tick has ended";
    EXPECT_EQ(over(2), 16'000);
    EXPECT_EQ(steps(), 14) << "the pictures keep their pace";
}

TEST_F(ShowSound, SoundList_BesideStepsOfItsOwnPace_IsPlayedToo) {
    program.setting("ImageInterval", "1");
    start({"SOUNDASYNC", "SOUND=one.wav", "IMAGE=a.bmp"});
    program.advance(6000);
    EXPECT_EQ(steps(), 6);
    EXPECT_THAT(played(), ElementsAre("one.wav", "one.wav", "one.wav", "one.wav", "one.wav"));
}

TEST_F(ShowSound, SoundListTick_WritesItsTraceAndTheStateItFound) {
    start({"SOUNDASYNC", "SOUND=one.wav", "SOUND=two.wav", "IMAGE=a.bmp"});
    stepped(1);
    form().Timer1.setEnabled(false);
    program.trace.clear();
    const auto caption = [&] {
        program.advance(1000);
        return form().Label2.caption();
    };
    EXPECT_EQ(caption(), "Media Player=6");
    EXPECT_THAT(program.trace, ElementsAre("S: MainForm Timer2", "E: MainForm Timer2"));
    EXPECT_EQ(caption(), "Media Player=0");
    EXPECT_EQ(caption(), "Media Player=2");
    EXPECT_EQ(form().SoundListIndex, 1);
    program.advance(1000);
    EXPECT_EQ(form().SoundListIndex, 0) << "wrapped";
}

TEST_F(ShowSound, SoundListTick_InAnotherModeOrAtTheEnd_DoesNothing) {
    start({"SOUNDASYNC", "SOUND=one.wav", "IMAGE=a.bmp"});
    form().Timer2.setEnabled(true);
    form().Timer1.setEnabled(false);
    program.trace.clear();
    for (const std::int16_t mode : {noSound, soundWithImage, imageWaitsSound}) {
        shared.SoundMode = mode;
        program.advance(1000);
    }
    shared.SoundMode = soundList;
    form().ShowEnding = True;
    program.advance(1000);
    EXPECT_THAT(program.trace, IsEmpty());
    EXPECT_THAT(played(), IsEmpty());
    EXPECT_EQ(form().Label2.caption(), "hi!");
}

TEST_F(ShowSound, SoundListWithoutSounds_StaysAtEntry0) {
    start({"SOUNDASYNC", "IMAGE=a.bmp"});
    EXPECT_EQ(shared.SoundLast, -1);
    program.advance(10'000);
    EXPECT_EQ(form().SoundListIndex, 0);
    EXPECT_EQ(form().MediaPlayer1.fileName(), "");
    EXPECT_EQ(steps(), 5);
    EXPECT_FALSE(playerIsMade());
}

TEST_F(ShowSound, SoundList_WalksPastWhatCannotBePlayedTickByTick) {
    start({"SOUNDASYNC", "SOUND=none.wav", "SOUND=one.wav", "SOUND=gone.wav", "IMAGE=a.bmp"});
    program.advance(8500);
    EXPECT_THAT(played(), ElementsAre("one.wav", "one.wav"));
    EXPECT_EQ(begun(0), 4000);
    EXPECT_EQ(begun(1), 7000) << "the missing ones take a tick each";
}

TEST_F(ShowSound, SoundList_IsOffDuringTransitions) {
    setTransitionsOf5Seconds();
    start({"SOUNDASYNC", "SOUND=two.wav", "SOUND=one.wav", "IMAGE=a.bmp", "IMAGE=b.bmp"});
    stepped(1);
    ShowRecorder recorder(program);
    recorder.afterPaint = [&] {
        EXPECT_FALSE(form().Timer2.enabled());
        EXPECT_THAT(played(), ElementsAre("two.wav")) << "over in the midst of the transition";
    };
    stepped(2);
    EXPECT_EQ(recorder.paints.size(), 50U);
    const std::int64_t end = time();
    EXPECT_LT(over(0), end - 3000);
    program.advance(1000);
    EXPECT_THAT(played(), ElementsAre("two.wav", "one.wav"));
    EXPECT_EQ(begun(1), end + 1000);
}

TEST_F(ShowSound, SoundList_BehindAFailedFirstStep_BeginsWithTheNextGoodOne) {
    program.machine.files().addFile(path("broken.bmp"), "no picture");
    start({"SOUNDASYNC", "SOUND=one.wav", "IMAGE=broken.bmp", "IMAGE=a.bmp"});
    program.advance(3900);
    EXPECT_THAT(played(), IsEmpty());
    EXPECT_FALSE(form().Timer2.enabled());
    EXPECT_EQ(stepped(1), 4000);
    EXPECT_TRUE(form().Timer2.enabled());
    program.advance(1000);
    EXPECT_THAT(played(), ElementsAre("one.wav"));
}

TEST_F(ShowSound, SoundList_WithoutADevice_ShowsItsPictures) {
    program.machine.sound().setPresent(false);
    start({"SOUNDASYNC", "SOUND=one.wav", "IMAGE=a.bmp", "IMAGE=b.bmp"});
    program.advance(10'000);
    EXPECT_EQ(steps(), 5);
    EXPECT_THAT(played(), IsEmpty());
}

TEST_F(ShowSound, SoundList_EndOfTheShow_StopsTheSound) {
    start({"SOUNDASYNC", "SOUND=long.wav", "IMAGE=a.bmp"});
    program.advance(3500);
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(over(0), 3500);
}

// A packaged show: its sounds go through the media player in every mode.

TEST_F(ShowSound, PackagedSoundList_IsPlayedInOrderWithASilentTickBehindTheLastRow) {
    startPackage(soundList, {700, 300});
    EXPECT_EQ(shared.SoundLast, 2);
    stepped(1);
    form().Timer1.setEnabled(false);
    std::vector<std::int16_t> indexes;
    std::vector<std::string> names;
    for (int tick = 0; tick < 4; ++tick) {
        program.advance(1000);
        indexes.push_back(form().SoundListIndex);
        names.push_back(form().MediaPlayer1.fileName());
    }
    EXPECT_THAT(indexes, ElementsAre(0, 1, 2, 0));
    EXPECT_THAT(names, ElementsAre(extracted, extracted, "", extracted));
    EXPECT_EQ(over(0) - begun(0), 700);
    EXPECT_EQ(over(1) - begun(1), 300) << "the second one in the first one's file";
    EXPECT_EQ(begun(2), begun(1) + 2000);
}

TEST_F(ShowSound, PackagedSoundList_OfSoundsShorterThanTheInterval_KeepsTheFirstPicture) {
    program.setting("ImageInterval", "4");
    startPackage(soundList, {700, 300, 700});
    program.advance(60'000);
    EXPECT_EQ(steps(), 1) << "each extraction starts the count of the show's timer anew";
    EXPECT_GT(played().size(), 30U);
}

TEST_F(ShowSound, PackagedSoundList_OfSoundsLongerThanTheInterval_ShowsThePictures) {
    startPackage(soundList, {4500, 4500, 4500});
    program.advance(60'000);
    EXPECT_GT(steps(), 15);
}

TEST_F(ShowSound, PackagedSoundList_SoundThatCannotBeExtracted_EndsTheProgram) {
    startPackage(soundList, {700});
    stepped(1);
    program.machine.files().failTransfers(ownFile(program));
    program.advance(1000);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.machine.messageBoxes(), IsEmpty());
}

TEST_F(ShowSound, PackagedSoundWithImage_HoldsNothingAndIsCutOffByTheNext) {
    startPackage(soundWithImage, {10'000, 5000});
    EXPECT_EQ(stepped(3), 6000);
    EXPECT_THAT(played(), ElementsAre("Tessellarium.wav", "Tessellarium.wav", "Tessellarium.wav"));
    EXPECT_EQ(over(0), 4000);
    EXPECT_EQ(over(1), 6000);
    EXPECT_THAT(plainSounds(), IsEmpty());
}

TEST_F(ShowSound, PackagedImageWaitsSound_HoldsThePictureUntilTheTickBehindTheSound) {
    startPackage(imageWaitsSound, {1200, 300});
    EXPECT_EQ(stepped(1), 500);
    EXPECT_EQ(stepped(2), 2000);
    EXPECT_EQ(stepped(3), 2500);
}

TEST_F(ShowSound, PackagedItemWithoutASound_LeavesThePlayerAlone) {
    startPackage(soundWithImage, {10'000, 0});
    stepped(2);
    EXPECT_EQ(playState(), PlayState::playing);
    EXPECT_EQ(form().MediaPlayer1.fileName(), extracted);
}

TEST_F(ShowSound, PackagedSoundThatCannotBeExtracted_ShowsTheBannerAndLeavesTheTimersOff) {
    startPackage(imageWaitsSound, {700});
    program.machine.files().failTransfers(ownFile(program));
    program.advance(2000);
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Device I/O error"), 1);
    EXPECT_FALSE(form().Timer1.enabled());
    EXPECT_THAT(played(), IsEmpty());
}

} // namespace
