// What other programs do to the controls of a dialog by the messages of Windows alone, without the notice
// that would tell the dialog of it, and the identifiers by which Windows tells the controls of a dialog. The
// simulated machine's controls know neither.
#include "contract/contract_test.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/list_box.h"
#include "toolkit/scroll_bar.h"

#include <windows.h>

#include <vector>

namespace contract {

namespace {

class ListsForm : public toolkit::Form {
public:
    ListsForm()
        : Form({.name = "ListsForm",
                .caption = "Contract Lists",
                .width = 4500,
                .height = 3000,
                .dialog = true}) {
        list.click = [this] { events.push_back("list " + list.text()); };
        choice.click = [this] { events.push_back("choice " + choice.text()); };
        bar.change = [this] { events.push_back("bar " + std::to_string(bar.value())); };
    }

    toolkit::ListBox list{*this, {"list", 0, 0, 1500, 1500}};
    toolkit::ScrollBar bar{*this, {"bar", 0, 1500, 1500, 300}, {.min = 10, .max = 50, .value = 20}};
    toolkit::DropDownList choice{*this, {"choice", 1500, 0, 1500, 315}};

    std::vector<std::string> events;
    std::vector<std::string> take() { return std::exchange(events, {}); }
};

class Messages : public MachineTest {
protected:
    Messages() {
        form.load();
        for (const char* item : {"first", "second", "third"}) {
            form.list.addItem(item);
            form.choice.addItem(item);
        }
        form.show();
        driver->settle();
        form.take();
    }

    std::intptr_t send(toolkit::Element& control, UINT message, std::intptr_t wParam = 0,
                       std::intptr_t lParam = 0) {
        return driver->sendMessage(control.hWnd(), message, static_cast<std::uintptr_t>(wParam), lParam);
    }
    std::intptr_t send(toolkit::Element& control, UINT message, const char* text) {
        return send(control, message, -1, reinterpret_cast<std::intptr_t>(text));
    }

    ListsForm& form = application.form<ListsForm>();
};

} // namespace

TEST_F(Messages, ItemSelectedByItsIndex_IsTheOneThatIsShown) {
    EXPECT_EQ(send(form.list, LB_SETCURSEL, 1), 1);
    EXPECT_EQ(send(form.choice, CB_SETCURSEL, 2), 2);
    EXPECT_THAT(form.take(), ElementsAre("list second", "choice third"));
    EXPECT_EQ(send(form.list, LB_GETCURSEL), 1);
    EXPECT_EQ(send(form.choice, CB_GETCURSEL), 2);
}

TEST_F(Messages, ItemSelectedByItsText_IsTheOneThatIsShown) {
    EXPECT_EQ(send(form.list, LB_SELECTSTRING, "sec"), 1);
    EXPECT_EQ(send(form.choice, CB_SELECTSTRING, "thi"), 2);
    EXPECT_THAT(form.take(), ElementsAre("list second", "choice third"));
    EXPECT_EQ(send(form.list, LB_GETCURSEL), 1);
    EXPECT_EQ(send(form.choice, CB_GETCURSEL), 2);
}

TEST_F(Messages, ItemThatIsNotThere_LeavesTheOneThatIsShown) {
    form.list.setListIndex(1);
    form.choice.setListIndex(2);
    form.take();
    for (const int index : {-1, 3}) {
        EXPECT_LT(send(form.list, LB_SETCURSEL, index), 0);
        EXPECT_LT(send(form.choice, CB_SETCURSEL, index), 0);
    }
    EXPECT_LT(send(form.list, LB_SELECTSTRING, "none"), 0);
    EXPECT_LT(send(form.choice, CB_SELECTSTRING, "none"), 0);
    EXPECT_THAT(form.take(), IsEmpty());
    EXPECT_EQ(send(form.list, LB_GETCURSEL), 1);
    EXPECT_EQ(send(form.choice, CB_GETCURSEL), 2);
}

TEST_F(Messages, TextWiderThanItsList_CanBeScrolledToItsEnd) {
    auto* list = reinterpret_cast<HWND>(form.list.hWnd());
    const auto hasBar = [&] { return (GetWindowLongA(list, GWL_STYLE) & WS_HSCROLL) != 0; };
    EXPECT_FALSE(hasBar());
    form.list.addItem(std::string(100, 'W'));
    EXPECT_TRUE(hasBar());
    form.list.addItem("fourth");
    EXPECT_TRUE(hasBar());
    RECT room{};
    GetClientRect(list, &room);
    EXPECT_GT(send(form.list, LB_GETHORIZONTALEXTENT), room.right);
    form.list.removeItem(3);
    EXPECT_FALSE(hasBar());
}

// The bar for the rows takes its width when it comes, which is when the list gets its window here.
TEST_F(Messages, TextThatFitsOnlyWithoutTheBarBesideIt_CanBeScrolledToItsEnd) {
    constexpr int rows = 20; // more than there is room for
    for (int row = 0; row < rows; ++row) {
        form.list.addItem("i");
    }
    auto* list = reinterpret_cast<HWND>(form.list.hWnd());
    RECT room{};
    GetClientRect(list, &room);
    const HDC dc = GetDC(list);
    SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(list, WM_GETFONT, 0, 0)));
    std::string text;
    for (SIZE size{}; size.cx < room.right;) {
        text += 'i';
        GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    }
    ReleaseDC(list, dc);
    form.unload();
    form.load();
    for (int row = 0; row < rows; ++row) {
        form.list.addItem(text);
    }
    form.show();
    EXPECT_GT(send(form.list, LB_GETHORIZONTALEXTENT), room.right);
}

TEST_F(Messages, Refresh_IsOnTheScreenAtOnce) {
    auto* list = reinterpret_cast<HWND>(form.list.hWnd());
    form.list.setListIndex(1);
    RECT row{};
    SendMessageA(list, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    POINT place{row.right - 2, row.top + 2}; // beside the text
    ClientToScreen(list, &place);
    const HDC screen = GetDC(nullptr);
    driver->settle();
    const COLORREF before = GetPixel(screen, place.x, place.y);
    form.list.setListIndex(0);
    form.list.refresh();
    EXPECT_NE(GetPixel(screen, place.x, place.y), before) << "it is selected now";
    ReleaseDC(nullptr, screen);
}

// Each kind of control had numbers of its own, so that one dialog had several controls of one number. In the
// end the default button shared its own with a list, and Enter pressed nothing.
TEST_F(Messages, ControlsOfAllKinds_TakeTheirIdentifiersFromOneSequence) {
    std::vector<int> identifiers;
    for (toolkit::Control* control : form.controls()) {
        identifiers.push_back(GetDlgCtrlID(reinterpret_cast<HWND>(control->hWnd())));
    }
    // Of two sequences, whatever stands before, a list, a bar and a list couldn't be in this order.
    EXPECT_THAT(identifiers,
                ElementsAre(testing::_, testing::Gt(identifiers[0]), testing::Gt(identifiers[1])));
}

TEST_F(Messages, ThumbOfABar_CountsWhenItIsLetGo) {
    const auto thumb = [&](int notice, int position) {
        send(form, WM_HSCROLL, MAKEWPARAM(notice, position), static_cast<std::intptr_t>(form.bar.hWnd()));
    };
    thumb(SB_THUMBTRACK, 33);
    EXPECT_THAT(form.take(), IsEmpty());
    EXPECT_EQ(form.bar.value(), 20);
    thumb(SB_THUMBPOSITION, 33);
    EXPECT_THAT(form.take(), ElementsAre("bar 33"));
}

} // namespace contract
