// transition_time ROUNDS TRANSITION FULLSCREEN BLOCKS FOLDER PICTURE
//
// One transition of the show at no delay, and the same paints, in the same order and of the same picture, by
// bare calls of the system: for each, one stretch into a canvas, one copy of what it changed to the window,
// one look at the queue. FOLDER holds PICTURE alone.
#include "bare_decoding.h"
#include "measure.h"

// NOTE: the system's header makes another name of it.
#undef LoadImage

#include "show/main_form.h"
#include "startup/shared_state.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"
#include "toolkit/observer.h"
#include "toolkit/pictures.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Paint {
    bool blank = false; // of the eraser and not of the picture
    sys::PixelRect source;
    sys::PixelRect target;
};

/// What is painted between two looks at the queue.
using Pass = std::vector<Paint>;

sys::PixelRect common(const sys::PixelRect& a, const sys::PixelRect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

sys::PixelRect around(const sys::PixelRect& a, const sys::PixelRect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

/// Watches a transition from its choice to its last pause.
class TransitionWatch : public ShowObserver, public toolkit::Observer {
public:
    explicit TransitionWatch(const MainForm& form) : form_(form) {}

    void transitionChosen(const std::string& /*name*/) override {
        passes = {{}};
        pauses.clear();
        begun = measure::now();
    }
    void paused(std::int16_t /*divisor*/) override {
        pauses.push_back(measure::now());
        passes.emplace_back();
    }
    void painted(const toolkit::Element& element, const toolkit::PaintCall& call,
                 const sys::Picture* picture) override {
        const sys::TwipsPerPixel scale = toolkit::Application::current().system().twipsPerPixel();
        const sys::PixelRect whole = sys::toPixels({0, 0, picture->width(), picture->height()}, scale);
        const float x2 = call.x2.value_or(0);
        const float y2 = call.y2.value_or(0);
        const sys::Area source{x2, y2, call.width2.value_or(picture->width() - x2),
                               call.height2.value_or(picture->height() - y2)};
        // `Picture1` covers the whole form here, but for the slides, which paint on the form itself.
        measure::require(&element == &form_ || element.left() == form_.Picture1.left(), "a known place");
        sys::Area target{call.x1, call.y1, call.width1.value_or(0), call.height1.value_or(0)};
        if (&element != &form_) {
            target.left += element.left();
            target.top += element.top();
        }
        passes.back().push_back({picture == form_.pctBlank.picture().get(),
                                 common(sys::toPixels(source, scale), whole), sys::toPixels(target, scale)});
    }
    void failed(const Failure& failure) override { throw std::runtime_error(failure.description()); }
    void moved(const toolkit::Element& /*element*/) override {}
    void visibleAssigned(const toolkit::Element& /*element*/, bool /*changed*/) override {}
    void mediaPlayed(const std::string& /*fileName*/) override {}

    double begun = 0;
    std::vector<double> pauses; // when each began
    std::vector<Pass> passes;

private:
    const MainForm& form_;
};

class Show {
public:
    Show(const std::string& transition, const std::string& folder) {
        shared.ImagePath = folder;
        shared.AllImages = 1;
        shared.ImageInterval = 30;
        shared.DissolveType = transition;
        shared.IgnoreMouse = 1;
        shared.MouseSensitivity = 500;
        form_.show();
        form_.Timer1.setEnabled(false);
        form_.observer = &watch_;
        toolkit::Application::current().setObserver(&watch_);
    }
    ~Show() { toolkit::Application::current().setObserver(nullptr); }
    Show(const Show&) = delete;
    Show& operator=(const Show&) = delete;

    /// Milliseconds of the transition, decoding left out, until all of it is on the screen.
    double run(const measure::Screen& screen) {
        form_.setPicture(toolkit::LoadPicture());
        toolkit::Application::current().yield();
        measure::bringToFront(reinterpret_cast<HWND>(form_.hWnd()));
        form_.LoadImage();
        toolkit::Application::current().yield();
        measure::require(screen.centre() != measure::black, "the picture on the screen");
        return measure::now() - watch_.begun;
    }

    const std::vector<Pass>& passes() const { return watch_.passes; }

    /// Milliseconds from one pause to the next.
    std::vector<double> frames() const {
        std::vector<double> lengths;
        for (std::size_t at = 1; at < watch_.pauses.size(); ++at) {
            lengths.push_back(watch_.pauses[at] - watch_.pauses[at - 1]);
        }
        return lengths;
    }

private:
    MainForm& form_ = toolkit::Application::current().form<MainForm>();
    TransitionWatch watch_{form_};
};

/// The same passes with bare calls.
class BareTransition {
public:
    explicit BareTransition(const std::string& path)
        : picture_(codecs_.decode(std::wstring(path.begin(), path.end()))) {
        SetStretchBltMode(canvas_.context(), HALFTONE);
        SetBrushOrgEx(canvas_.context(), 0, 0, nullptr);
        cover_.show();
    }

    double run(const measure::Screen& screen, const std::vector<Pass>& passes) {
        PatBlt(canvas_.context(), 0, 0, canvas_.width(), canvas_.height(), BLACKNESS);
        copyToWindow({0, 0, canvas_.width(), canvas_.height()});
        measure::bringToFront(cover_.window());
        const double begun = measure::now();
        frames.clear();
        double last = begun;
        for (const Pass& pass : passes) {
            if (!pass.empty()) {
                run(pass);
            }
            measure::deliverMessages();
            frames.push_back(measure::now() - std::exchange(last, measure::now()));
        }
        measure::require(screen.centre() != measure::black, "the picture on the screen");
        return measure::now() - begun;
    }

    std::vector<double> frames; // milliseconds of each pass

private:
    void run(const Pass& pass) {
        sys::PixelRect changed = pass.front().target;
        for (const Paint& paint : pass) {
            stretch(paint.blank ? blank_ : *picture_, paint);
            changed = around(changed, paint.target);
        }
        copyToWindow(common(changed, {0, 0, canvas_.width(), canvas_.height()}));
    }

    void stretch(const measure::Bitmap& from, const Paint& paint) const {
        const auto& [blank, source, target] = paint;
        if (source.width() == target.width() && source.height() == target.height()) {
            BitBlt(canvas_.context(), target.left, target.top, target.width(), target.height(),
                   from.context(), source.left, source.top, SRCCOPY);
        } else {
            StretchBlt(canvas_.context(), target.left, target.top, target.width(), target.height(),
                       from.context(), source.left, source.top, source.width(), source.height(), SRCCOPY);
        }
    }

    void copyToWindow(const sys::PixelRect& area) const {
        const HDC window = GetDC(cover_.window());
        BitBlt(window, area.left, area.top, area.width(), area.height(), canvas_.context(), area.left,
               area.top, SRCCOPY);
        ReleaseDC(cover_.window(), window);
    }

    measure::ImagingCodecs codecs_;
    std::unique_ptr<measure::Bitmap> picture_;
    measure::Bitmap blank_{64, 64, 24};
    measure::Cover cover_{measure::black, "Bare transition", WS_EX_TOPMOST};
    measure::Bitmap canvas_{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), 32};
};

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "transition_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        shared.FullScreen = static_cast<std::int16_t>(std::stoi(arguments[3]));
        shared.Blocks = static_cast<std::int16_t>(std::stoi(arguments[4]));

        const measure::Screen screen;
        Show show(arguments[2], arguments[5]);
        BareTransition bare(arguments[6]);
        std::vector<double> showTimes;
        std::vector<double> bareTimes;
        std::vector<double> showFrames;
        std::vector<double> bareFrames;
        for (int round = 0; round <= rounds; ++round) {
            const double showTime = show.run(screen);
            const double bareTime = bare.run(screen, show.passes());
            if (round == 0) {
                continue; // it brings codec and file into memory
            }
            showTimes.push_back(showTime);
            bareTimes.push_back(bareTime);
            const std::vector<double> frames = show.frames();
            showFrames.insert(showFrames.end(), frames.begin(), frames.end());
            bareFrames.insert(bareFrames.end(), bare.frames.begin(), bare.frames.end());
        }
        measure::report("transition.product", showTimes);
        measure::report("transition.bare", bareTimes);
        measure::report("frames.product", showFrames);
        measure::report("frames.bare", bareFrames);
    });
}
