// The sounds of a packaged show, as they are heard.
#include "support/package.h"

#include "startup/shared_state.h"
#include "support/wav_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using testing::ElementsAre;

constexpr const char* wavPath = "T:\\Tessellarium\\Tessellarium.wav";

class PackagedSounds : public testing::Test {
protected:
    PackagedSounds() {
        program.addPicture("C:\\picture", {20, 10});
        picture = program.machine.files().content("C:\\picture");
        program.setting("ImageInterval", "2");
    }

    PackageRow row(int milliseconds) const {
        return {.picture = picture, .sound = wavFile(milliseconds), .soundExt = "wav"};
    }
    PackageRow silentRow() const { return {.picture = picture}; }
    void start(int soundMode, const std::vector<PackageRow>& rows) {
        installPackage(program, Package{.soundMode = soundMode, .rows = rows}.bytes());
        program.start("/s");
        began = program.machine.now();
    }
    /// Lets the show run so long; when each sound began, in ms from its start.
    std::vector<std::int64_t> begunIn(std::int64_t milliseconds) {
        program.advance(milliseconds);
        std::vector<std::int64_t> times;
        for (const auto& sound : program.machine.sound().played()) {
            EXPECT_EQ(sound.file, wavPath);
            times.push_back(sound.begun - began);
        }
        return times;
    }
    std::vector<std::int64_t> lengths() {
        std::vector<std::int64_t> lengths;
        for (const auto& sound : program.machine.sound().played()) {
            lengths.push_back(sound.over - sound.begun);
        }
        return lengths;
    }
    long steps() { return program.traced("E: MainForm LoadImage"); }

    Program program;
    std::string picture;
    std::int64_t began = 0;
};

TEST_F(PackagedSounds, Mode1_PlaysEachWithItsPictureAndHoldsNothing) {
    start(1, {row(500), row(10'000), silentRow(), row(700)});
    EXPECT_THAT(begunIn(9000), ElementsAre(2000, 4000, 8000));
    EXPECT_THAT(lengths(), ElementsAre(500, 4000, 700)) << "the next sound cuts it off, no silent item does";
    EXPECT_EQ(steps(), 4);
}

TEST_F(PackagedSounds, Mode2_HoldsThePictureUntilItsSoundIsOver) {
    start(2, {row(3000), silentRow(), row(1000)});
    // A tick at 3500 shows the silent row, the next one the third.
    EXPECT_THAT(begunIn(6000), ElementsAre(500, 4000, 5000));
    EXPECT_THAT(lengths(), ElementsAre(3000, 1000, 3000));
}

TEST_F(PackagedSounds, Mode3_WalksTheRowsAndASilentStepBehindThem) {
    program.setting("ImageInterval", "32");
    start(3, {row(400), silentRow(), row(600)});
    // A second after the first step, and each second after that: sound, silence, sound, silence behind the
    // last row, and from the beginning.
    EXPECT_THAT(begunIn(32'000 + 5500), ElementsAre(33'000, 35'000, 37'000));
    EXPECT_THAT(lengths(), ElementsAre(400, 600, 400));
    EXPECT_EQ(steps(), 1);
}

TEST_F(PackagedSounds, Mode3_WaitsForASoundThatPlays) {
    program.setting("ImageInterval", "32");
    start(3, {row(2500), row(400)});
    EXPECT_THAT(begunIn(32'000 + 4500), ElementsAre(33'000, 36'000));
}

// `Timer2_Timer` has no handler.
TEST_F(PackagedSounds, Mode3_SoundThatCannotBeTakenOut_EndsTheProgram) {
    PackageRow damaged = row(400);
    damaged.soundStart = -1;
    start(3, {damaged});
    program.advance(3500);
    EXPECT_TRUE(program.ended());
    EXPECT_EQ(program.exitCode(), 1);
}

} // namespace
