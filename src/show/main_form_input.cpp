// The input of the show: what ends it, and the gate that all ways out go through.
#include "show/main_form.h"
#include "show/show_system.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/numbers.h"

using toolkit::Application;

void MainForm::Form_Click() { unload(); }

void MainForm::Form_DblClick() { unload(); }

void MainForm::Form_KeyDown(std::int16_t /*KeyCode*/, std::int16_t /*Shift*/) { unload(); }

void MainForm::Form_KeyPress(std::int16_t /*KeyAscii*/) { unload(); }

void MainForm::Form_MouseDown() { unload(); }

void MainForm::Form_MouseMove() {
    // A count is forgotten only by a move that comes this long after the window's first: meant so.
    constexpr double forgottenAfter = 2000; // seconds

    if (ShowEnding != 0 || shared.IgnoreMouse != 0) {
        return;
    }
    shared.MouseMoveCount = toolkit::wrap16(shared.MouseMoveCount + 1);
    if (shared.MouseMoveCount == shared.MouseSensitivity) {
        unload();
    }
    const double second = Application::current().system().secondsSinceMidnight();
    if (FirstMoveTime_ == 0) {
        FirstMoveTime_ = toolkit::round32(second);
    } else if (second - FirstMoveTime_ > forgottenAfter) {
        FirstMoveTime_ = 0;
        shared.MouseMoveCount = 0;
    }
}

void MainForm::MediaPlayer1_KeyPress(std::int16_t character) {
    // Only a digit is a number; any other key ends the process by the default report: meant so.
    if (character < '0' || character > '9') {
        throw Failure(FailureCode::typeMismatch);
    }
    Form_KeyPress(toolkit::wrap16(character - '0'));
}

void MainForm::Form_QueryUnload(bool& Cancel) {
    WriteLog("S: MainForm QueryUnLoad");
    if (ShowEnding != 0) {
        showCursor();
        WriteLog("E: MainForm QueryUnLoad");
        unload(); // meant so, though the form, whose unloading this is, takes no second one
        return;
    }
    bool mayEnd = true;
    if (passwordWanted()) {
        showCursor();
        const std::int32_t answer = toolkit::platform().verifyScreenSavePwd(hWnd());
        mayEnd = toolkit::wrap16(answer) != 0; // only the low 16 bits count
        if (!mayEnd) {
            hideCursor();
            shared.MouseMoveCount = 0;
            Cancel = true;
        }
    }
    if (mayEnd) {
        ShowEnding = True;
    }
    WriteLog("E: MainForm QueryUnLoad");
}
