// A dialog with the controls of the settings dialog, made by plain calls: what the product's own is held
// against. It reads no drive and no folder, and nothing works in it.
#include "resources/embedded.h"

#include <cstdint>
#include <span>

#include <windows.h>

#include <commctrl.h>

namespace {

constexpr int twipsPerPixel = 15; // at 96 dpi

HFONT dialogFont() {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = -11;
    return CreateFontIndirectA(&metrics.lfMessageFont);
}

/// Places are in twips.
struct Place {
    int left, top, width, height;
};

class Dialog {
public:
    explicit Dialog(HWND window) : parent_(window), font_(dialogFont()) {}

    HWND add(const char* kind, const char* text, DWORD style, Place place, DWORD extendedStyle = 0) {
        HWND const made =
            CreateWindowExA(extendedStyle, kind, text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style,
                            place.left / twipsPerPixel, place.top / twipsPerPixel,
                            place.width / twipsPerPixel, place.height / twipsPerPixel, parent_,
                            reinterpret_cast<HMENU>(++identifier_), GetModuleHandleA(nullptr), nullptr);
        SendMessageA(made, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
        return made;
    }
    void label(const char* text, Place place, DWORD style = 0) {
        add("STATIC", text, WS_GROUP | SS_NOPREFIX | style, place);
    }
    /// The name of the control behind it, which screen readers tell.
    void name(const char* text) { ShowWindow(add("STATIC", text, WS_GROUP | SS_NOPREFIX, {}), SW_HIDE); }
    void check(const char* text, Place place) {
        add("BUTTON", text, BS_CHECKBOX | WS_GROUP | WS_TABSTOP, place);
    }
    void option(const char* text, Place place, DWORD style = 0) {
        add("BUTTON", text, BS_AUTORADIOBUTTON | style, place);
    }
    void bar(Place place) { add("SCROLLBAR", "", SBS_HORZ | WS_TABSTOP, place); }
    HWND dropDown(Place place) {
        return add("COMBOBOX", "", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP,
                   {place.left, place.top, place.width, place.height + 3000});
    }
    void list(Place place) {
        add("LISTBOX", "", LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP,
            place, WS_EX_CLIENTEDGE);
    }
    void button(const char* text, std::span<const std::uint8_t> icon, Place place);
    void picture(std::span<const std::uint8_t> bitmap, Place place);

    /// What `fill` adds stands in a frame.
    template <class Fill> HWND frame(DWORD style, Place place, const Fill& fill) {
        const char* kind = (style & BS_GROUPBOX) != 0 ? "BUTTON" : "STATIC";
        HWND const inside = add(kind, "", WS_GROUP | WS_CLIPCHILDREN | style, place, WS_EX_CONTROLPARENT);
        HWND const outside = parent_;
        parent_ = inside;
        fill();
        parent_ = outside;
        return inside;
    }

private:
    HWND parent_;
    HFONT font_;
    std::uintptr_t identifier_ = 1000;
};

/// The picture of 32 pixels, above the caption.
void Dialog::button(const char* text, std::span<const std::uint8_t> icon, Place place) {
    HWND const made = add("BUTTON", text, BS_PUSHBUTTON | BS_MULTILINE | WS_TABSTOP, place);
    constexpr int side = 32;
    const auto number = [&](std::size_t at) {
        return icon[at] | icon[at + 1] << 8U | icon[at + 2] << 16U | icon[at + 3] << 24U;
    };
    HIMAGELIST const images = ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, 1, 0);
    for (std::size_t entry = 6; entry < 6 + 16U * icon[4]; entry += 16) {
        if (icon[entry] == side) {
            const auto* bytes = icon.data() + number(entry + 12);
            HICON const drawn =
                CreateIconFromResourceEx(const_cast<BYTE*>(bytes), static_cast<DWORD>(number(entry + 8)),
                                         TRUE, 0x30000, side, side, LR_DEFAULTCOLOR);
            ImageList_ReplaceIcon(images, -1, drawn);
            DestroyIcon(drawn);
        }
    }
    BUTTON_IMAGELIST layout{};
    layout.himl = images;
    layout.uAlign = BUTTON_IMAGELIST_ALIGN_TOP;
    SendMessageA(made, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&layout));
}

void Dialog::picture(std::span<const std::uint8_t> bitmap, Place place) {
    HWND const made = add("STATIC", "", SS_BITMAP | SS_CENTERIMAGE, place);
    const auto* header = reinterpret_cast<const BITMAPFILEHEADER*>(bitmap.data());
    const auto* layout = reinterpret_cast<const BITMAPINFO*>(bitmap.data() + sizeof *header);
    HDC const screen = GetDC(nullptr);
    HBITMAP const drawn = CreateDIBitmap(screen, &layout->bmiHeader, CBM_INIT,
                                         bitmap.data() + header->bfOffBits, layout, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    SendMessageA(made, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(drawn));
}

void addLeftColumn(Dialog& dialog) {
    dialog.check("Template Mode", {60, 60, 1455, 195});
    dialog.button("Select", resources::select_template, {60, 360, 780, 780});
    dialog.button("New", resources::new_template, {900, 360, 780, 780});
    dialog.button("Edit", resources::edit_template, {1740, 360, 780, 780});
    dialog.label("", {0, 1200, 3120, 15}, SS_ETCHEDHORZ);
    dialog.name("Template or folder");
    dialog.add("EDIT", "C:\\", ES_AUTOHSCROLL | WS_TABSTOP, {60, 1320, 2955, 285}, WS_EX_CLIENTEDGE);
    dialog.label("", {0, 1680, 3120, 15}, SS_ETCHEDHORZ);
    dialog.check("Folder Mode", {60, 1800, 1515, 195});
    dialog.button("Select", resources::select_folder, {60, 2100, 780, 780});
    dialog.label("", {0, 2940, 3120, 15}, SS_ETCHEDHORZ);
    const char* const captions[] = {"Delay Interval: 10 Seconds", "Dissolve Size: 10", "Dissolve Delay: 0",
                                    "Mouse Sensitivity: 100"};
    int top = 3000;
    for (const char* caption : captions) {
        dialog.label(caption, {60, top, 2900, 200}, SS_CENTER);
        dialog.bar({60, top + 240, 2990, 285});
        top += 540;
    }
    dialog.check("Ignore Mouse", {3120, 4980, 1305, 225});
}

void addPanel(Dialog& dialog) {
    constexpr Place panel{3120, 0, 5115, 3075};
    dialog.frame(BS_GROUPBOX, panel, [&] {
        dialog.name("What to do");
        dialog.add(
            "EDIT",
            "Tessellarium is currently in Template Mode.\r\n\r\nIn this mode, you must either Select an "
            "existing template, Create\r\na new template, or Edit an existing template.",
            ES_MULTILINE | ES_READONLY | WS_TABSTOP, {120, 240, 4875, 2715}, WS_EX_CLIENTEDGE);
    });
    for (const bool withTransitions : {false, true}) {
        HWND const lists = dialog.frame(BS_GROUPBOX, panel, [&] {
            dialog.name("Drive");
            dialog.dropDown({120, 180, 2355, 315});
            dialog.name("Folder");
            dialog.list({120, 660, 2355, 1890});
            dialog.name("File");
            dialog.list({2520, 180, 2475, 2430});
            if (withTransitions) {
                dialog.label("Dissolve Type:", {120, 2760, 1000, 200});
                HWND const types = dialog.dropDown({1200, 2700, 3735, 315});
                for (int type = 0; type < 15; ++type) {
                    SendMessageA(types, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("Slide Bottom To Center"));
                }
            }
        });
        ShowWindow(lists, SW_HIDE);
    }
}

void addOptions(Dialog& dialog) {
    struct Group {
        Place place;
        const char* heading;
        const char* first;
        const char* second;
    };
    for (const Group& group : {Group{{3240, 3180, 1215, 795}, "Size", "Full Screen", "Original"},
                               Group{{4740, 3180, 1155, 795}, "Placement", "Random", "Centered"},
                               Group{{6120, 3180, 1215, 795}, "Order", "Random", "Sequential"}}) {
        dialog.frame(SS_LEFT, group.place, [&] {
            dialog.label(group.heading, {0, 30, group.place.width, 225});
            dialog.option(group.first, {0, 300, group.place.width, 225}, WS_GROUP | WS_TABSTOP);
            dialog.option(group.second, {0, 570, group.place.width, 225});
        });
    }
}

HWND makeWindow(HINSTANCE instance) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefDlgProcA;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = "BareDialog";
    RegisterClassA(&windowClass);
    HMENU const bar = CreateMenu();
    HMENU const help = CreatePopupMenu();
    for (const char* entry : {"&Contents", "&Home Page", "&About"}) {
        AppendMenuA(help, MF_STRING, 1, entry);
    }
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(help), "&Help");
    constexpr DWORD style = WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    RECT place{0, 0, 8325 / twipsPerPixel, 5295 / twipsPerPixel};
    AdjustWindowRectEx(&place, style, TRUE, WS_EX_CONTROLPARENT);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    return CreateWindowExA(
        WS_EX_CONTROLPARENT, "BareDialog", "Bare Dialog", style, (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
        (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, nullptr, bar, instance, nullptr);
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    HWND const window = makeWindow(instance);
    Dialog dialog(window);
    addLeftColumn(dialog);
    addPanel(dialog);
    addOptions(dialog);
    dialog.picture(resources::settings_banner_100, {3150, 4260, 4170, 495});
    dialog.button("Done", resources::done, {7440, 3480, 780, 780});
    dialog.button("Cancel", resources::cancel, {7440, 4380, 780, 780});
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageA(window, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return 0;
}
