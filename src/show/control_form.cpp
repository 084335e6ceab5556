#include "show/control_form.h"

#include "resources/embedded.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

namespace {

constexpr sys::Color lightGrey{0xC0, 0xC0, 0xC0};

void giveToWindow(toolkit::Element& element, sys::WindowHandle parent) {
    shared.ApiResult = sys::numberOf(toolkit::platform().setParent(element.hWnd(), parent));
}

/// Where a part begins that stands in the middle of a whole.
float centred(std::int32_t whole, float part) {
    return static_cast<float>((static_cast<double>(whole) - part) / 2);
}

/// What `CtlProc` does. A message that is swallowed, or the close, leaves no line of its end: meant so.
std::intptr_t answer(sys::WindowHandle hwnd, std::uint32_t msg, std::uintptr_t wParam, std::intptr_t lParam) {
    WriteLog("S: CtlProc");
    if (shared.PrevWndProc == 0) {
        return 0; // meant so: without a procedure to hand it to, the message is swallowed
    }
    if (msg != sys::closeMessage) {
        const std::intptr_t result =
            toolkit::platform().callWindowProc(shared.PrevWndProc, hwnd, msg, wParam, lParam);
        WriteLog("E: CtlProc");
        return result;
    }
    // Meant so: `Picture1` alone is taken back; `Picture2` stays in the host until the form's unload.
    auto& form = Application::current().form<ControlForm>();
    giveToWindow(form.Picture1, form.hWnd());
    shared.PreviewActive = False;
    return 0;
}

} // namespace

ControlForm::ControlForm()
    : Form({.name = "ControlForm", .caption = product::title, .backColor = lightGrey, .inTaskBar = false}),
      Picture1(*this, {.control = {.name = "Picture1"}, .backColor = sys::white}),
      Picture2(*this, {.control = {.name = "Picture2", .width = 1395, .height = 795},
                       .backColor = sys::white,
                       .picture = resources::logo}),
      Timer1(*this, {.interval = 400}) {
    loadEvent = [this] { Form_Load(); };
    unloadEvent = [this](bool&) { Form_Unload(); };
    Timer1.tick = [this] { Timer1_Timer(); };
}

void ControlForm::Form_Load() {
    WriteLog("S: ControlForm Form_Load");
    // Meant so: the setting counts seconds, and here is taken for milliseconds as it stands.
    Timer1.setInterval(shared.ImageInterval);
    Subclass(Picture1.hWnd());
    const sys::WindowHandle host = sys::handleOf(shared.HostWindow);
    shared.ApiResult = toolkit::platform().getClientRect(host, shared.HostRect);
    const std::int32_t width = shared.HostRect.width() * shared.TwipsPerPixelX;
    const std::int32_t height = shared.HostRect.height() * shared.TwipsPerPixelY;
    Picture1.move(0, 0, static_cast<float>(width), static_cast<float>(height));
    Picture2.setLeft(centred(width, Picture2.width()));
    Picture2.setTop(centred(height, Picture2.height()));
    // A window keeps its position relative to its parent, and the last one to come stands in front.
    giveToWindow(Picture1, host);
    giveToWindow(Picture2, host);
    shared.PreviewActive = True;
    WriteLog("E: ControlForm Form_Load");
}

void ControlForm::Form_Unload() {
    WriteLog("S: ControlForm Form_Unload");
    // Meant so: this is not the window that was hooked. `Picture1` keeps `CtlProc`, which from here on
    // swallows every message; nothing comes of it, as all these windows are about to go.
    UnSubClass(hWnd());
    WriteLog("E: ControlForm Form_Unload");
}

void ControlForm::Timer1_Timer() {
    WriteLog("S: ControlForm Timer1");
    const bool hostGone = toolkit::platform().isWindow(sys::handleOf(shared.HostWindow)) == 0;
    if (hostGone || shared.PreviewActive == False) {
        WriteLog("E: ControlForm Timer1");
        unload();
    }
    WriteLog("E: ControlForm Timer1"); // meant so: after an unload the second one
}

void Subclass(sys::WindowHandle hwnd) {
    WriteLog("S: Subclass");
    shared.PrevWndProc = toolkit::platform().setWindowLong(hwnd, sys::windowProcedureIndex,
                                                           reinterpret_cast<std::intptr_t>(&CtlProc));
    WriteLog("E: Subclass");
}

void UnSubClass(sys::WindowHandle hwnd) {
    WriteLog("S: UnSubClass");
    if (shared.PrevWndProc != 0) {
        toolkit::platform().setWindowLong(hwnd, sys::windowProcedureIndex, shared.PrevWndProc);
        shared.PrevWndProc = 0;
    }
    WriteLog("E: UnSubClass");
}

std::intptr_t CtlProc(sys::WindowHandle hwnd, std::uint32_t msg, std::uintptr_t wParam,
                      std::intptr_t lParam) {
    std::intptr_t result = 0;
    toolkit::handlingFailures([&] { result = answer(hwnd, msg, wParam, lParam); },
                              [](const Failure& failure) { Application::current().reportFailure(failure); });
    return result;
}
