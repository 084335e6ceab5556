// Which routines run for the name of a transition, told by the trace.
#include "support/program.h"
#include "support/show_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

struct Transition {
    const char* name;
    const char* routine; // as the trace has it
    const char* part;    // the routine of one block or strip, or none
};

constexpr std::array transitions = {
    Transition{"Normal", "NormalDisplay", ""},
    Transition{"Random Blocks", "RandomBlockPaint", "DisplayBlock"},
    Transition{"Top To Bottom", "NormalCurtainDisplay", "DisplayCurtain"}, // not the routine's name: meant so
    Transition{"Bottom To Top", "NormalCurtainDisplay", "DisplayCurtain"},
    Transition{"Top/Bottom To Center", "DeluxeCurtainPaint", "DisplayCurtain"},
    Transition{"Random Horizontal", "RandomCurtainPaint", "DisplayCurtain"},
    Transition{"Left To Right", "NormalCurtainDisplay", "DisplayCurtain"},
    Transition{"Right To Left", "NormalCurtainDisplay", "DisplayCurtain"},
    Transition{"Left/Right To Center", "DeluxeCurtainPaint", "DisplayCurtain"},
    Transition{"Random Vertical", "RandomCurtainPaint", "DisplayCurtain"},
    Transition{"Slide Bottom To Center", "SlideBottom2Center", ""},
    Transition{"Slide Top To Center", "SlideTop2Center", ""},
    Transition{"Slide Right To Center", "SlideRight2Center", ""},
    Transition{"Slide Left To Center", "SlideLeft2Center", ""},
};

/// The first step of a small picture with `FullScreen` set.
struct NamedStep {
    explicit NamedStep(const std::string& transition) {
        program.addPicture("C:\\t\\a.bmp", {10, 10});
        program.setting("FullScreen", "1");
        program.setting("Blocks", "11");
        program.useTemplate({"IMAGE=a.bmp", "DISSOLVE=" + transition});
        program.start("/s");
        program.trace.clear();
        program.step();
    }
    Program program;
};

TEST(TransitionName, KnownOne_TracesItsRoutines) {
    for (const Transition& each : transitions) {
        SCOPED_TRACE(each.name);
        NamedStep step(each.name);
        std::vector<std::string> expected = {"S: MainForm Timer1", "S: MainForm LoadImage", "Disable Timers",
                                             std::string("S: MainForm ") + each.routine};
        std::vector<std::string> pass = {"S: MainForm Pause", "E: MainForm Pause"};
        if (*each.part != '\0') {
            pass.insert(pass.begin(), std::string("S: MainForm ") + each.part);
            pass.push_back(std::string("E: MainForm ") + each.part);
        }
        for (long left = step.program.traced("S: MainForm Pause"); left > 0; --left) {
            expected.insert(expected.end(), pass.begin(), pass.end());
        }
        for (const std::string& line :
             {std::string("E: MainForm ") + each.routine, std::string("Enable Timers"),
              std::string("E: MainForm LoadImage"), std::string("E: MainForm Timer1")}) {
            expected.push_back(line);
        }
        EXPECT_EQ(step.program.trace, expected);
    }
}

TEST(TransitionName, InAnotherSpelling_IsShownPlainly) {
    const auto inSmallLetters = [](std::string text) {
        std::ranges::transform(text, text.begin(), [](char letter) {
            return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        });
        return text;
    };
    for (const Transition& each : transitions) {
        const std::string name = each.name;
        for (const std::string& spelling : {inSmallLetters(name), name + "s", inSmallLetters("Random")}) {
            SCOPED_TRACE(spelling);
            NamedStep step(spelling);
            EXPECT_EQ(step.program.traced("S: MainForm NormalDisplay"), 1);
            EXPECT_EQ(step.program.traced("S: MainForm Pause"), 0);
            // What a slide's name begins with is asked as exactly.
            EXPECT_EQ(step.program.form().Picture1.width(), spelling.starts_with("Slide") ? 150 : 9600);
        }
    }
}

} // namespace
