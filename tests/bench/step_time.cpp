// step_time ROUNDS FULLSCREEN FOLDER PICTURE
//
// One step of the show, split into decoding and painting: the program's own against the same work by bare
// calls of the system, in turn. FOLDER holds PICTURE alone.
#include "bare_decoding.h"
#include "measure.h"

// NOTE: the system's header makes another name of it.
#undef LoadImage

#include "show/main_form.h"
#include "startup/shared_state.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"
#include "toolkit/pictures.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Times {
    std::vector<double> decode{};
    std::vector<double> paint{};
    std::vector<double> step{};

    void add(double begun, double decoded, double painted) {
        decode.push_back(decoded - begun);
        paint.push_back(painted - decoded);
        step.push_back(painted - begun);
    }
    void report(const std::string& who) const {
        measure::report("decode." + who, decode);
        measure::report("paint." + who, paint);
        measure::report("step." + who, step);
    }
};

/// Notes when a step begins and when its picture is decoded.
class StepWatch : public ShowObserver {
public:
    void stepBegun() override { begun = measure::now(); }
    void transitionChosen(const std::string& /*name*/) override { decoded = measure::now(); }
    void failed(const Failure& failure) override { throw std::runtime_error(failure.description()); }

    double begun = 0;
    double decoded = 0;
};

/// The moment when the picture is on the screen.
double shown(const measure::Screen& screen) {
    measure::require(screen.centre() != measure::black, "the picture on the screen");
    return measure::now();
}

/// The step as the program does it.
class Show {
public:
    explicit Show(const std::string& folder) {
        shared.ImagePath = folder;
        shared.AllImages = 1;
        shared.ImageInterval = 30;
        shared.Blocks = 10;
        shared.DissolveType = "Normal";
        shared.IgnoreMouse = 1;
        shared.MouseSensitivity = 500;
        form_.show();
        form_.Timer1.setEnabled(false);
        form_.observer = &watch_;
    }

    void step(const measure::Screen& screen, Times& times) {
        form_.Picture1.setPicture(toolkit::LoadPicture());
        toolkit::Application::current().yield();
        measure::bringToFront(reinterpret_cast<HWND>(form_.hWnd()));
        measure::waitUntil([&] { return screen.covered(measure::black); }, "the black form");
        form_.LoadImage();
        toolkit::Application::current().yield();
        times.add(watch_.begun, watch_.decoded, shown(screen));
    }

private:
    MainForm& form_ = toolkit::Application::current().form<MainForm>();
    StepWatch watch_;
};

/// The same with bare calls: decode, stretch or copy to a retained surface, copy that to the window.
class BareStep {
public:
    explicit BareStep(std::wstring path) : path_(std::move(path)) {
        SetStretchBltMode(canvas_.context(), HALFTONE);
        cover_.show();
    }

    void step(const measure::Screen& screen, Times& times) {
        blacken();
        measure::bringToFront(cover_.window());
        measure::waitUntil([&] { return screen.covered(measure::black); }, "the bare black window");
        const double begun = measure::now();
        picture_ = codecs_.decode(path_);
        const double decoded = measure::now();
        paint();
        times.add(begun, decoded, shown(screen));
    }

private:
    void blacken() const {
        const HDC window = GetDC(cover_.window());
        PatBlt(window, 0, 0, canvas_.width(), canvas_.height(), BLACKNESS);
        ReleaseDC(cover_.window(), window);
    }

    void paint() const {
        if (picture_->width() == canvas_.width() && picture_->height() == canvas_.height()) {
            BitBlt(canvas_.context(), 0, 0, canvas_.width(), canvas_.height(), picture_->context(), 0, 0,
                   SRCCOPY);
        } else {
            StretchBlt(canvas_.context(), 0, 0, canvas_.width(), canvas_.height(), picture_->context(), 0, 0,
                       picture_->width(), picture_->height(), SRCCOPY);
        }
        const HDC window = GetDC(cover_.window());
        BitBlt(window, 0, 0, canvas_.width(), canvas_.height(), canvas_.context(), 0, 0, SRCCOPY);
        ReleaseDC(cover_.window(), window);
        measure::deliverMessages();
    }

    measure::ImagingCodecs codecs_;
    std::wstring path_;
    measure::Cover cover_{measure::black, "Bare step", WS_EX_TOPMOST};
    measure::Bitmap canvas_{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), 32};
    std::unique_ptr<measure::Bitmap> picture_; // until the next one is there, as in the show
};

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "step_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        shared.FullScreen = static_cast<std::int16_t>(std::stoi(arguments[2]));
        const std::string picture = arguments[4];

        const measure::Screen screen;
        Show show(arguments[3]);
        BareStep bare(std::wstring(picture.begin(), picture.end()));
        Times showTimes;
        Times bareTimes;
        for (int round = 0; round <= rounds; ++round) {
            // The first round brings the codec and the file into memory.
            Times warmUp;
            show.step(screen, round == 0 ? warmUp : showTimes);
            bare.step(screen, round == 0 ? warmUp : bareTimes);
        }
        showTimes.report("product");
        bareTimes.report("bare");
    });
}
