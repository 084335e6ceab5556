#include "system/win32/native_window.h"
#include "system/win32/system_win32.h"

namespace sys::win32 {

namespace {

UINT flagOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::ok: return MB_OK;
    case MessageButtons::okCancel: return MB_OKCANCEL;
    case MessageButtons::yesNo: return MB_YESNO;
    }
    return MB_OK;
}

} // namespace

MessageAnswer Win32System::messageBox(const MessageBoxStyle& style) {
    const HWND owner = style.owner != 0 ? toNative(style.owner) : GetActiveWindow();
    const UINT icon = style.icon == MessageIcon::information ? MB_ICONINFORMATION : 0;
    const int answer = MessageBoxA(owner, style.text.c_str(), style.title.c_str(),
                                   flagOf(style.buttons) | icon | MB_TASKMODAL);
    // 0: the box could not be made. The answer of one that was closed unread is the nearest.
    return answer != 0 ? static_cast<MessageAnswer>(answer) : MessageAnswer::cancel;
}

} // namespace sys::win32
