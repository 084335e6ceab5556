// The preview: what it puts into a window of another program, and what ends it.
#include "show/control_form.h"

#include "resources/embedded.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "support/program.h"
#include "system/simulated/pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

using Lines = std::vector<std::string>;

constexpr std::uint32_t otherMessage = 0x400; // one that no system knows
constexpr sys::PixelRect hostPlace{100, 50, 252, 162};

const Lines tickLines = {"S: ControlForm Timer1", "E: ControlForm Timer1"};
const Lines endingTickLines = {"S: ControlForm Timer1", "E: ControlForm Timer1", "S: ControlForm Form_Unload",
                               "S: UnSubClass",         "E: UnSubClass",         "E: ControlForm Form_Unload",
                               "E: ControlForm Timer1"};

class Preview {
public:
    explicit Preview(sys::TwipsPerPixel scale = {15, 15}) : program({640, 480}, scale) {}

    /// With a host window there.
    void start(const sys::PixelRect& place = hostPlace) {
        host = program.machine.addForeignWindow("Host", place);
        startWith(std::to_string(host));
    }
    void startWith(const std::string& number) {
        program.start("/p " + number);
        if (program.over()) {
            return;
        }
        area = form().Picture1.hWnd();
        logo = form().Picture2.hWnd();
    }

    ControlForm& form() { return program.application().form<ControlForm>(); }
    /// The lines of the trace since the last call.
    Lines newTrace() {
        Lines lines(std::next(program.trace.begin(), linesTaken_), program.trace.end());
        linesTaken_ += std::ssize(lines);
        return lines;
    }
    const Lines& calls() { return program.machine.platform().calls(); }
    const sys::simulated::WindowNode* window(sys::WindowHandle handle) {
        return program.machine.window(handle);
    }
    /// The windows in the host, front first.
    std::vector<sys::WindowHandle> inHost() {
        std::vector<sys::WindowHandle> handles;
        for (const auto* child : window(host)->children()) {
            handles.push_back(child->id());
        }
        return handles;
    }
    void close() { answer = program.machine.sendMessage(area, sys::closeMessage); }

    Program program;
    sys::WindowHandle host = 0;
    sys::WindowHandle area = 0; // of `Picture1`
    sys::WindowHandle logo = 0; // of `Picture2`
    std::intptr_t answer = -1;

private:
    std::ptrdiff_t linesTaken_ = 0;
};

/// The tick so many milliseconds from now lets it run out, and nothing of it is left.
void expectItsLastTickIn(Preview& preview, int milliseconds) {
    preview.newTrace();
    preview.program.advance(milliseconds - 1);
    EXPECT_FALSE(preview.program.over());
    preview.program.advance(1);
    EXPECT_TRUE(preview.program.over());
    EXPECT_FALSE(preview.program.ended()) << "it isn't ended from inside";
    EXPECT_THAT(preview.newTrace(), ElementsAreArray(endingTickLines));
    EXPECT_THAT(
        preview.program.machine.windows(),
        Each(testing::Property(&sys::simulated::WindowNode::kind, sys::simulated::WindowKind::foreign)));
    EXPECT_EQ(preview.program.machine.nextDue(), std::nullopt) << "no timer is left";
}

std::string number(sys::WindowHandle handle) { return std::to_string(handle); }

// Coming up

TEST(Preview, Start_TracesItsRoutinesInOrder) {
    Preview preview;
    preview.start();
    EXPECT_THAT(preview.newTrace(), ElementsAre("S: Main", "S: DetermineRunMode", "E: DetermineRunMode",
                                                "S: ControlForm Form_Load", "S: Subclass", "E: Subclass",
                                                "E: ControlForm Form_Load", "E: Main"));
}

TEST(Preview, Start_CallsTheSystemInOrderAndForNothingElse) {
    Preview preview;
    preview.start();
    EXPECT_THAT(preview.calls(),
                ElementsAre("setWindowLong(" + number(preview.area) + ", -4, program)",
                            "getClientRect(" + number(preview.host) + ")",
                            "setParent(" + number(preview.area) + ", " + number(preview.host) + ")",
                            "setParent(" + number(preview.logo) + ", " + number(preview.host) + ")"))
        << "no search for another run, no sound";
}

TEST(Preview, Start_LeavesTheSharedStateOfAPreview) {
    Preview preview;
    preview.start();
    EXPECT_EQ(shared.HostWindow, static_cast<std::int32_t>(preview.host));
    EXPECT_EQ(shared.HostRect, (sys::PixelRect{0, 0, 152, 112}));
    EXPECT_EQ(shared.PreviewActive, True);
    EXPECT_EQ(shared.PrevWndProc, sys::simulated::nativeProcedure);
    EXPECT_EQ(preview.program.machine.windowProcedure(preview.area),
              reinterpret_cast<std::intptr_t>(&CtlProc));
    EXPECT_EQ(preview.program.machine.windowProcedure(preview.logo), sys::simulated::nativeProcedure);
    const auto form = static_cast<std::int32_t>(preview.form().hWnd());
    EXPECT_EQ(shared.ApiResult, form) << "the logo's former parent";
}

TEST(Preview, Form_IsLoadedAndNeverShown) {
    Preview preview;
    preview.start();
    EXPECT_TRUE(preview.form().loaded());
    EXPECT_FALSE(preview.form().shown());
    const auto* window = preview.window(preview.form().hWnd());
    EXPECT_EQ(window->text(), "Tessellarium");
    EXPECT_FALSE(window->visible());
    EXPECT_FALSE(window->inTaskBar());
    EXPECT_THAT(window->children(), IsEmpty());
    EXPECT_FALSE(preview.program.form().loaded()) << "no show";
    preview.form().move(0, 0, 15, 15);
    preview.form().show();
    preview.program.advance(1);
    EXPECT_EQ(preview.program.pixel(0, 0), (sys::Color{0xC0, 0xC0, 0xC0})) << "which is never seen";
}

TEST(Preview, Pictures_StandInTheHostWithTheLogoInFront) {
    Preview preview;
    preview.start();
    EXPECT_THAT(preview.inHost(), ElementsAre(preview.logo, preview.area));
    EXPECT_TRUE(preview.window(preview.logo)->visible());
    EXPECT_TRUE(preview.window(preview.area)->visible());
    EXPECT_EQ(preview.window(preview.area)->rect(), (sys::PixelRect{0, 0, 152, 112}));
    EXPECT_EQ(preview.window(preview.logo)->rect(), (sys::PixelRect{30, 30, 123, 83}));
}

TEST(Preview, Positions_OfAHostOf152By112Pixels) {
    Preview preview;
    preview.start();
    EXPECT_EQ(preview.form().Picture1.left(), 0);
    EXPECT_EQ(preview.form().Picture1.top(), 0);
    EXPECT_EQ(preview.form().Picture1.width(), 2280);
    EXPECT_EQ(preview.form().Picture1.height(), 1680);
    EXPECT_EQ(preview.form().Picture2.left(), 442.5F);
    EXPECT_EQ(preview.form().Picture2.top(), 442.5F);
    EXPECT_EQ(preview.form().Picture2.width(), 1395);
    EXPECT_EQ(preview.form().Picture2.height(), 795);
}

TEST(Preview, Positions_AtOtherScales_CountWholeTwipsAPixel) {
    struct Case {
        double twips;
        float width, height, left, top;
    };
    for (const Case& each : {Case{12, 1824, 1344, 214.5F, 274.5F}, Case{10, 1520, 1120, 62.5F, 162.5F},
                             Case{7.5, 1216, 896, -89.5F, 50.5F}}) { // 7.5 is taken for 8
        Preview preview({each.twips, each.twips});
        preview.start();
        EXPECT_EQ(preview.form().Picture1.width(), each.width) << each.twips;
        EXPECT_EQ(preview.form().Picture1.height(), each.height) << each.twips;
        EXPECT_EQ(preview.form().Picture2.left(), each.left) << each.twips;
        EXPECT_EQ(preview.form().Picture2.top(), each.top) << each.twips;
    }
}

TEST(Preview, LogoBoxLargerThanItsPicture_IsWhiteAroundIt) {
    Preview preview({10, 10});
    preview.start();
    preview.program.advance(10);
    const auto logo = preview.window(preview.logo)->rect();
    EXPECT_EQ(logo, (sys::PixelRect{6, 16, 146, 96})) << "of a picture of 93 by 53 pixels";
    EXPECT_EQ(preview.program.pixel(hostPlace.left + 120, hostPlace.top + 80), (sys::Color{255, 255, 255}));
}

TEST(Preview, LargeHost_IsMeasuredIn32Bits) {
    Preview preview;
    preview.start({0, 0, 5000, 3000});
    EXPECT_EQ(preview.form().Picture1.width(), 75000);
    EXPECT_EQ(preview.form().Picture1.height(), 45000);
    EXPECT_EQ(preview.form().Picture2.left(), 36802.5F);
    EXPECT_EQ(preview.form().Picture2.top(), 22102.5F);
}

TEST(Preview, HostSmallerThanTheLogo_CutsItOffEvenly) {
    Preview preview;
    auto expected = preview.program.machine.screen();
    preview.start({100, 50, 153, 71}); // of 53 by 21 pixels
    preview.program.advance(10);
    EXPECT_EQ(preview.form().Picture2.left(), -300);
    EXPECT_EQ(preview.form().Picture2.top(), -240);
    const auto picture = preview.program.machine.decodePicture(resources::logo);
    const auto& pixels = dynamic_cast<const sys::simulated::DecodedPicture&>(*picture).pixels();
    expected.copy(pixels, {20, 16, 73, 37}, {100 - 20, 50 - 16});
    EXPECT_TRUE(preview.program.machine.screen() == expected);
}

TEST(Preview, Screen_ShowsAWhiteAreaWithTheLogoInTheHostAndNothingElse) {
    Preview preview;
    const auto before = preview.program.machine.screen();
    preview.start();
    preview.program.advance(10);
    const auto picture = preview.program.machine.decodePicture(resources::logo);
    auto expected = before;
    expected.fill(hostPlace, {255, 255, 255, 255});
    const auto& pixels = dynamic_cast<const sys::simulated::DecodedPicture&>(*picture).pixels();
    expected.copy(pixels, pixels.bounds(), {hostPlace.left + 30, hostPlace.top + 30});
    EXPECT_TRUE(preview.program.machine.screen() == expected);
}

TEST(Preview, Logo_IsAPictureOfItsDesignedSize) {
    Preview preview;
    preview.start();
    const auto& picture = preview.form().Picture2.picture();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width(), 1395);
    EXPECT_EQ(picture->height(), 795);
    EXPECT_EQ(preview.form().Picture1.picture(), nullptr);
    const auto& pixels = dynamic_cast<const sys::simulated::DecodedPicture&>(*picture).pixels();
    std::set<int> colors;
    for (int y = 0; y < 53; ++y) {
        for (const sys::simulated::Pixel& pixel : pixels.row(y)) {
            colors.insert(pixel.red << 16 | pixel.green << 8 | pixel.blue);
        }
    }
    EXPECT_GT(colors.size(), 50U) << "not a blank one";
}

// Watching

TEST(Preview, Interval_IsTheSettingInMilliseconds) {
    struct Case {
        const char* setting;
        int milliseconds;
    };
    for (const Case& each : {Case{"1", 1}, Case{"10", 10}, Case{"120", 120}}) {
        Preview preview;
        preview.program.setting("ImageInterval", each.setting);
        preview.start();
        EXPECT_EQ(preview.form().Timer1.interval(), each.milliseconds);
        preview.newTrace();
        preview.program.advance(each.milliseconds - 1);
        EXPECT_THAT(preview.newTrace(), IsEmpty()) << each.setting;
        preview.program.advance(1);
        EXPECT_THAT(preview.newTrace(), ElementsAreArray(tickLines)) << each.setting;
        preview.program.advance(5L * each.milliseconds);
        EXPECT_EQ(preview.program.traced("S: ControlForm Timer1"), 6) << each.setting;
    }
}

TEST(Preview, Interval_ChangesNothingOfWhatIsShown) {
    const auto shownAt = [](const char* interval) {
        Preview preview;
        preview.program.setting("ImageInterval", interval);
        preview.start();
        preview.program.advance(1000);
        return preview.program.machine.screen();
    };
    EXPECT_TRUE(shownAt("1") == shownAt("120"));
}

TEST(Preview, Tick_AsksForTheHostAndForNothingElse) {
    Preview preview;
    preview.start();
    preview.program.machine.platform().forgetCalls();
    preview.program.advance(60'000);
    EXPECT_FALSE(preview.program.over());
    EXPECT_THAT(preview.calls(), Each("isWindow(" + number(preview.host) + ")"));
    EXPECT_EQ(preview.calls().size(), 6000U);
}

TEST(Preview, WholeRun_WritesNoFile) {
    Preview preview;
    auto& files = preview.program.machine.files();
    const std::string all = preview.program.machine.identity().folder + "\\*";
    const auto before = files.list(all);
    preview.start();
    preview.program.advance(500);
    EXPECT_EQ(files.list(all), before);
    preview.close();
    preview.program.advance(500);
    EXPECT_EQ(files.list(all), before);
    EXPECT_THAT(files.list("C:\\*"), IsEmpty());
}

TEST(Preview, AnotherRun_DoesNotMatter) {
    Preview preview;
    preview.program.machine.addForeignWindow("Screen Saver Main Form");
    preview.program.machine.addForeignWindow("Tessellarium");
    preview.start();
    preview.program.advance(500);
    EXPECT_FALSE(preview.program.over());
    EXPECT_THAT(preview.program.trace, Not(Contains("S: CheckUnique")));
}

// Messages to the hooked window

TEST(Preview, AnyMessageButClose_IsHandedOnAndTheResultComesBack) {
    Preview preview;
    preview.start();
    preview.newTrace();
    preview.program.machine.platform().forgetCalls();
    const auto answer = [](sys::WindowHandle, std::uint32_t message, std::uintptr_t wParam,
                           std::intptr_t lParam) {
        return static_cast<std::intptr_t>(message) * 1000 + static_cast<std::intptr_t>(wParam) * 10 + lParam;
    };
    shared.PrevWndProc = reinterpret_cast<std::intptr_t>(+answer);
    EXPECT_EQ(preview.program.machine.sendMessage(preview.area, otherMessage, 7, -3), 1'024'067);
    EXPECT_THAT(preview.calls(),
                ElementsAre("callWindowProc(program, " + number(preview.area) + ", 1024, 7, -3)"));
    EXPECT_THAT(preview.newTrace(), ElementsAre("S: CtlProc", "E: CtlProc"));
    EXPECT_EQ(shared.PreviewActive, True);
}

TEST(Preview, Message_OfPointerSize_GoesThroughWhole) {
    Preview preview;
    preview.start();
    const auto answer = [](sys::WindowHandle, std::uint32_t, std::uintptr_t wParam, std::intptr_t lParam) {
        return static_cast<std::intptr_t>(wParam) + lParam;
    };
    shared.PrevWndProc = reinterpret_cast<std::intptr_t>(+answer);
    EXPECT_EQ(preview.program.machine.sendMessage(preview.area, otherMessage, 0x1234'0000'0000, 0x5678),
              0x1234'0000'5678);
}

TEST(Preview, Close_TakesTheAreaBackAndGoesNoFurther) {
    Preview preview;
    preview.start();
    const sys::WindowHandle form = preview.form().hWnd();
    preview.newTrace();
    preview.program.machine.platform().forgetCalls();
    preview.close();
    EXPECT_EQ(preview.answer, 0);
    EXPECT_THAT(preview.newTrace(), ElementsAre("S: CtlProc")) << "meant so: no line at the end";
    EXPECT_THAT(preview.calls(), ElementsAre("setParent(" + number(preview.area) + ", " + number(form) + ")"))
        << "the replaced procedure is not called";
    EXPECT_EQ(shared.ApiResult, static_cast<std::int32_t>(preview.host));
    EXPECT_EQ(shared.PreviewActive, False);
    EXPECT_EQ(preview.window(preview.area)->parent()->id(), form);
    EXPECT_THAT(preview.inHost(), ElementsAre(preview.logo)) << "meant so: the logo stays";
    EXPECT_TRUE(preview.form().loaded());
}

TEST(Preview, AfterClose_TheNextTickEndsIt) {
    Preview preview;
    preview.start();
    preview.close();
    expectItsLastTickIn(preview, 10);
    EXPECT_THAT(preview.inHost(), IsEmpty()) << "the logo has gone as well";
}

TEST(Preview, PostedClose_EndsItToo) {
    Preview preview;
    preview.start();
    preview.program.machine.postMessage(preview.area, sys::closeMessage);
    preview.program.advance(10);
    EXPECT_TRUE(preview.program.over());
}

TEST(Preview, SecondClose_BeforeTheTick_DoesTheSameAgain) {
    Preview preview;
    preview.start();
    preview.close();
    preview.close();
    EXPECT_EQ(preview.answer, 0);
    EXPECT_EQ(shared.ApiResult, static_cast<std::int32_t>(preview.form().hWnd()));
    preview.program.advance(10);
    EXPECT_TRUE(preview.program.over());
}

TEST(Preview, CloseOfTheLogo_DoesNothing) {
    Preview preview;
    preview.start();
    preview.program.machine.sendMessage(preview.logo, sys::closeMessage);
    preview.program.advance(500);
    EXPECT_FALSE(preview.program.over());
    EXPECT_EQ(preview.program.traced("S: CtlProc"), 0);
}

TEST(Preview, Unload_GivesTheReplacedProcedureToTheForm) {
    Preview preview;
    preview.start();
    const sys::WindowHandle form = preview.form().hWnd();
    preview.close();
    preview.program.machine.platform().forgetCalls();
    std::intptr_t procedure = 0;
    std::intptr_t answer = -1;
    Lines lines;
    trace::sink = [&](const std::string& line) {
        lines.push_back(line);
        if (line == "E: UnSubClass") {
            procedure = preview.program.machine.windowProcedure(preview.area);
            answer = preview.program.machine.sendMessage(preview.area, otherMessage);
            preview.close();
        }
    };
    preview.program.advance(10);
    EXPECT_THAT(preview.calls(), ElementsAre("isWindow(" + number(preview.host) + ")",
                                             "setWindowLong(" + number(form) + ", -4, native)"))
        << "meant so: it was the area's";
    EXPECT_EQ(procedure, reinterpret_cast<std::intptr_t>(&CtlProc)) << "which keeps the hook";
    EXPECT_EQ(answer, 0) << "and swallows every message";
    EXPECT_EQ(preview.answer, 0);
    EXPECT_EQ(std::ranges::count(lines, "S: CtlProc"), 2);
    EXPECT_THAT(lines, Not(Contains("E: CtlProc")));
    EXPECT_EQ(shared.PrevWndProc, 0);
    EXPECT_TRUE(preview.program.over());
}

TEST(Preview, UnSubClass_WithoutAHook_TouchesNoWindow) {
    Preview preview;
    preview.start();
    shared.PrevWndProc = 0;
    preview.newTrace();
    preview.program.machine.platform().forgetCalls();
    UnSubClass(preview.area);
    EXPECT_THAT(preview.calls(), IsEmpty());
    EXPECT_THAT(preview.newTrace(), ElementsAre("S: UnSubClass", "E: UnSubClass"));
}

TEST(Preview, FailureInsideTheWindowProcedure_EndsTheProcessAndDoesNotReachTheSystem) {
    Preview preview;
    preview.start();
    trace::sink = [](const std::string& line) {
        if (line == "S: CtlProc") {
            throw Failure(FailureCode::outOfMemory);
        }
    };
    preview.program.machine.postMessage(preview.area, otherMessage);
    preview.program.advance(5);
    ASSERT_TRUE(preview.program.ended());
    EXPECT_EQ(preview.program.exitCode(), 1);
}

// Hosts that go, or were never there

TEST(Preview, HostThatGoes_EndsItAtTheNextTick) {
    for (const int interval : {1, 10, 120}) {
        SCOPED_TRACE(interval);
        Preview preview;
        preview.program.setting("ImageInterval", std::to_string(interval));
        preview.start();
        preview.program.advance(interval);
        preview.program.machine.removeForeignWindow(preview.host);
        EXPECT_EQ(preview.window(preview.area), nullptr) << "it goes with its parent";
        EXPECT_EQ(preview.window(preview.logo), nullptr);
        expectItsLastTickIn(preview, interval);
    }
}

TEST(Preview, HostThatGoesAfterClose_EndsItOnce) {
    Preview preview;
    preview.start();
    preview.close();
    preview.program.machine.removeForeignWindow(preview.host);
    EXPECT_NE(preview.window(preview.area), nullptr) << "it was taken back";
    EXPECT_EQ(preview.window(preview.logo), nullptr);
    preview.program.advance(10);
    EXPECT_TRUE(preview.program.over());
    EXPECT_THAT(preview.program.machine.windows(), IsEmpty());
}

TEST(Preview, NoHost_LeavesAnEmptyAreaAndNoResultIsLookedAt) {
    Preview preview;
    preview.startWith("4321");
    const sys::WindowHandle form = preview.form().hWnd();
    EXPECT_EQ(shared.HostRect, sys::PixelRect{});
    EXPECT_EQ(shared.ApiResult, 0);
    EXPECT_EQ(shared.PreviewActive, True);
    EXPECT_EQ(preview.form().Picture1.width(), 0);
    EXPECT_EQ(preview.form().Picture2.left(), -697.5F);
    EXPECT_EQ(preview.form().Picture2.top(), -397.5F);
    EXPECT_EQ(preview.window(preview.area)->parent()->id(), form);
    EXPECT_EQ(preview.window(preview.logo)->parent()->id(), form);
}

TEST(Preview, NoHost_ShowsNothingAndIsFoundOutAtTheFirstTick) {
    for (const char* commandLine :
         {"/p 0", "/p", "/P", "/p:4321", "/p junk", "/p -1", "/p 4321", "/p 2147483647"}) {
        SCOPED_TRACE(commandLine);
        Preview preview;
        const auto before = preview.program.machine.screen();
        preview.program.start(commandLine);
        preview.program.advance(5);
        EXPECT_TRUE(preview.program.machine.screen() == before);
        expectItsLastTickIn(preview, 5);
    }
}

TEST(Preview, NegativeNumber_IsExtendedToAHandleByItsSign) {
    Preview preview;
    preview.startWith("-2");
    EXPECT_THAT(preview.calls(), Contains("getClientRect(18446744073709551614)"));
}

} // namespace
