// The preview: a still picture in a window of another program, which stands for a monitor.
#pragma once

#include "system/platform.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"

#include <cstdint>

/// Loaded but never shown: of it only the pictures are seen, as children of the host window.
class ControlForm : public toolkit::Form {
public:
    ControlForm();

    // The controls, from back to front.
    toolkit::PictureBox Picture1; // the white area that fills the host; the window that is hooked
    toolkit::PictureBox Picture2; // the logo in its middle
    toolkit::Timer Timer1;        // watches whether the preview is still wanted

private:
    void Form_Load();
    void Form_Unload();
    void Timer1_Timer();
};

/// Hooks the window: `CtlProc` becomes its window procedure, and the replaced one is kept in `PrevWndProc`.
void Subclass(sys::WindowHandle hwnd);

/// Makes the procedure that `Subclass` replaced the window's, whichever window that is, and forgets it;
/// nothing when no hook stands.
void UnSubClass(sys::WindowHandle hwnd);

/// The window procedure of `Picture1`, called by the system: passes everything on but a request to close,
/// which ends the preview.
std::intptr_t CtlProc(sys::WindowHandle hwnd, std::uint32_t msg, std::uintptr_t wParam, std::intptr_t lParam);
