// A list of rows in columns and its selection; the progress bar; the dialog that asks for a file's name; tool
// tips.
#include "toolkit/command_button.h"
#include "toolkit/common_dialog.h"
#include "toolkit/control_name.h"
#include "toolkit/frame.h"
#include "toolkit/list_box.h"
#include "toolkit/list_view.h"
#include "toolkit/progress_bar.h"

#include "support/keys.h"
#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using sys::simulated::ListViewWindow;
using sys::simulated::ProgressBarWindow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using namespace keys;

class RowsForm : public PlainForm {
public:
    RowsForm()
        : PlainForm({.name = "RowsForm", .caption = "Rows", .width = 6000, .height = 4500, .dialog = true}) {}

    toolkit::ControlName name{*this, "All rows"};
    toolkit::ListView rows{*this, {"rows", 0, 0, 4000, 1500}, {{"One", 0.25F}, {"Two", 0.75F}}};
    toolkit::CommandButton button{
        *this, {"button", 0, 1500, 780, 780}, {.caption = "Button", .toolTip = "What it does"}};
    toolkit::Frame frame{*this, {"frame", 0, 2400, 3000, 1000, false}};
    toolkit::ProgressBar progress{frame, {"progress", 0, 0, 3000, 300}};
    toolkit::ListBox list{*this, {"list", 4000, 0, 1500, 1500}};
    toolkit::CommonDialog dialog{*this};
};

class ListViewTest : public ToolkitFixture {
protected:
    ListViewTest() {
        machine.files().addFolder("T:\\out");
        form.rows.click = [this] { log("click"); };
        form.rows.dblClick = [this] { log("double click"); };
        form.rows.keyDown = [this](int key, int shift) {
            log("key " + std::to_string(key) + " " + std::to_string(shift));
        };
        form.show();
    }
    std::vector<std::string> take() { return std::exchange(events, {}); }
    void addRows(int count) {
        for (; count > 0; --count) {
            form.rows.addRow();
            form.rows.setText(form.rows.rowCount(), 1, "row " + std::to_string(form.rows.rowCount()));
        }
    }
    const ListViewWindow& native() {
        return dynamic_cast<const ListViewWindow&>(*machine.window(form.rows.hWnd()));
    }
    void press(int key, int shift = 0) {
        machine.user().giveFocus(form.rows.hWnd());
        machine.user().press(key, shift);
        machine.runUntilIdle();
    }

    RowsForm& form = application.form<RowsForm>();
};

TEST_F(ListViewTest, Rows_AreTextsByPositionsFromOne) {
    EXPECT_EQ(form.rows.rowCount(), 0);
    addRows(2);
    EXPECT_EQ(form.rows.rowCount(), 2);
    EXPECT_EQ(form.rows.text(2, 1), "row 2");
    EXPECT_EQ(form.rows.text(2, 2), "");
    form.rows.setText(1, 2, "text");
    EXPECT_THAT(native().rows(), ElementsAre(ElementsAre("row 1", "text"), ElementsAre("row 2", "")));
    form.rows.removeRow(1);
    EXPECT_THAT(native().rows(), ElementsAre(ElementsAre("row 2", "")));
    form.rows.clearRows();
    EXPECT_THAT(native().rows(), IsEmpty());
    EXPECT_THAT(take(), IsEmpty()) << "assignments raise nothing";
}

TEST_F(ListViewTest, PlacesThatAreNone_Fail) {
    addRows(2);
    struct Place {
        std::int16_t row, column;
    };
    for (const Place& none : {Place{0, 1}, Place{3, 1}, Place{1, 0}, Place{1, 3}}) {
        EXPECT_EQ(failureOf([&] { form.rows.text(none.row, none.column); }), 9);
        EXPECT_EQ(failureOf([&] { form.rows.setText(none.row, none.column, "x"); }), 9);
    }
    EXPECT_EQ(failureOf([&] { form.rows.removeRow(3); }), 9);
    EXPECT_EQ(failureOf([&] { form.rows.selectRow(3); }), 9);
    EXPECT_EQ(failureOf([&] { form.rows.selectRow(0); }), 9);
    EXPECT_EQ(form.rows.selectedRow(), 1);
}

TEST_F(ListViewTest, Columns_TakeTheirSharesOfTheWidth) {
    ASSERT_THAT(native().columns(), SizeIs(2));
    EXPECT_EQ(native().columns()[0].caption, "One");
    EXPECT_FLOAT_EQ(native().columns()[0].width, 1000);
    EXPECT_FLOAT_EQ(native().columns()[1].width, 3000);
}

TEST_F(ListViewTest, FirstRow_IsSelectedWhenItComes) {
    EXPECT_EQ(failureOf([&] { form.rows.selectedRow(); }), 91);
    EXPECT_EQ(native().selected(), -1);
    addRows(3);
    EXPECT_EQ(form.rows.selectedRow(), 1);
    form.rows.selectRow(3);
    EXPECT_EQ(native().selected(), 2);
    form.rows.clearRows();
    EXPECT_EQ(failureOf([&] { form.rows.selectedRow(); }), 91);
    addRows(2);
    EXPECT_EQ(form.rows.selectedRow(), 1);
    EXPECT_EQ(native().selected(), 0);
}

TEST_F(ListViewTest, Removal_OfTheSelectedRow_SelectsWhatTookItsPlaceOrTheLast) {
    addRows(4);
    form.rows.selectRow(2);
    form.rows.removeRow(2);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_EQ(form.rows.text(2, 1), "row 3");
    form.rows.selectRow(3);
    form.rows.removeRow(3);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_EQ(native().selected(), 1);
    form.rows.removeRow(2);
    form.rows.removeRow(1);
    EXPECT_EQ(failureOf([&] { form.rows.selectedRow(); }), 91);
    EXPECT_EQ(native().selected(), -1);
}

TEST_F(ListViewTest, Removal_OfAnotherRow_LeavesTheSelectedOne) {
    addRows(4);
    form.rows.selectRow(3);
    form.rows.removeRow(1);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    form.rows.removeRow(3);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_EQ(native().selected(), 1);
}

TEST_F(ListViewTest, Click_SelectsARow_AndOnTheSelectedOneOrBesideTheRowsDoesNothing) {
    addRows(2);
    machine.user().selectRow(form.rows.hWnd(), 1);
    machine.user().selectRow(form.rows.hWnd(), 1);
    machine.runUntilIdle();
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_THAT(take(), ElementsAre("click"));
    const sys::PixelRect place = machine.window(form.rows.hWnd())->screenRect();
    machine.user().click({place.left + 5, place.bottom - 3});
    machine.user().click({place.left + 5, place.top + 3}); // on the captions
    machine.runUntilIdle();
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(ListViewTest, DoubleClick_OnARow_SelectsAndActivatesIt) {
    addRows(2);
    const sys::PixelRect place = machine.window(form.rows.hWnd())->screenRect();
    machine.user().doubleClick({place.left + 5, place.top + 20 + 17 + 5});
    machine.runUntilIdle();
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_THAT(take(), testing::Contains("double click").Times(1));
    machine.user().doubleClick({place.left + 5, place.bottom - 3});
    machine.runUntilIdle();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(ListViewTest, Keys_MoveTheSelectionAndActivate) {
    addRows(3);
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    press(end);
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 3);
    press(up);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    press(home);
    EXPECT_EQ(form.rows.selectedRow(), 1);
    take();
    press(enter);
    EXPECT_THAT(take(), ElementsAre("key 13 0", "double click"));
}

TEST_F(ListViewTest, Keys_WithCtrlAndDelete_AreTheProgramsAlone) {
    addRows(3);
    press(down, sys::controlKey);
    press(up, sys::controlKey);
    press(deletion);
    EXPECT_EQ(form.rows.selectedRow(), 1);
    EXPECT_THAT(take(), ElementsAre("key 40 2", "key 38 2", "key 46 0"));
}

TEST_F(ListViewTest, Window_TakesOverWhatWasThereBeforeIt) {
    form.unload();
    form.load();
    addRows(3);
    form.rows.setText(2, 2, "text");
    form.rows.selectRow(2);
    form.show();
    EXPECT_THAT(native().rows(), ElementsAre(ElementsAre("row 1", ""), ElementsAre("row 2", "text"),
                                             ElementsAre("row 3", "")));
    EXPECT_EQ(native().selected(), 1);
    form.unload();
    form.load();
    EXPECT_EQ(form.rows.rowCount(), 0);
    EXPECT_EQ(failureOf([&] { form.rows.selectedRow(); }), 91);
}

TEST_F(ListViewTest, ControlName_StandsUnseenBeforeItsControl) {
    const auto& windows = machine.window(form.hWnd())->children(); // in the order of the tab key
    const auto rows = std::ranges::find(windows, form.rows.hWnd(), &sys::simulated::WindowNode::id);
    ASSERT_NE(rows, windows.begin());
    const sys::simulated::WindowNode& name = **std::prev(rows);
    EXPECT_EQ(name.text(), "All rows");
    EXPECT_FALSE(name.visible());
}

TEST_F(ListViewTest, ProgressBar_GoesFromNothingToAHundred) {
    EXPECT_EQ(form.progress.value(), 0);
    form.progress.setValue(33.5F);
    form.frame.setVisible(true);
    const auto& bar = dynamic_cast<const ProgressBarWindow&>(*machine.window(form.progress.hWnd()));
    EXPECT_EQ(bar.value(), 33.5F);
    form.progress.setValue(100);
    EXPECT_EQ(bar.value(), 100);
    EXPECT_EQ(failureOf([&] { form.progress.setValue(100.1F); }), 380);
    EXPECT_EQ(failureOf([&] { form.progress.setValue(-0.1F); }), 380);
    EXPECT_EQ(form.progress.value(), 100);
    const sys::PixelRect place = bar.screenRect();
    EXPECT_EQ(seen(place.right - 2, place.top + 2).green, 160) << "it is drawn";
}

TEST_F(ListViewTest, ToolTip_IsTheButtons) {
    const auto& window =
        dynamic_cast<const sys::simulated::ButtonWindow&>(*machine.window(form.button.hWnd()));
    EXPECT_EQ(window.toolTip(), "What it does");
}

TEST_F(ListViewTest, ListBox_RemovesAnItem) {
    for (const char* text : {"a", "b", "c"}) {
        form.list.addItem(text);
    }
    form.list.removeItem(1);
    EXPECT_EQ(form.list.listCount(), 2);
    EXPECT_EQ(form.list.list(1), "c");
    EXPECT_EQ(form.list.listIndex(), -1);
    const auto& window = dynamic_cast<const sys::simulated::ListWindow&>(*machine.window(form.list.hWnd()));
    EXPECT_THAT(window.items(), SizeIs(2));
    EXPECT_EQ(failureOf([&] { form.list.removeItem(2); }), 9);
    EXPECT_EQ(failureOf([&] { form.list.removeItem(-1); }), 9);
}

TEST_F(ListViewTest, SaveDialog_TakesTheValuesAndGivesTheName) {
    form.dialog.Flags = toolkit::CommonDialog::overwritePrompt | toolkit::CommonDialog::hideReadOnly;
    form.dialog.DefaultExt = "txt";
    form.dialog.FileName = "proposed";
    form.dialog.FilterIndex = 2;
    form.dialog.Filter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|left over";
    machine.answerSaveDialog("T:\\out\\given");
    form.dialog.ShowSave();
    EXPECT_EQ(form.dialog.FileName, "T:\\out\\given.txt");
    ASSERT_THAT(machine.saveDialogs(), SizeIs(1));
    const sys::SaveDialogStyle& shown = machine.saveDialogs().front();
    EXPECT_EQ(shown.fileName, "proposed");
    EXPECT_EQ(shown.kind, 2);
    EXPECT_THAT(shown.kinds, ElementsAre(sys::FileKind{"Text Files (*.txt)", "*.txt"},
                                         sys::FileKind{"All Files (*.*)", "*.*"}));
    EXPECT_TRUE(shown.asksBeforeOverwriting);
    EXPECT_TRUE(shown.hidesReadOnlyBox);
    EXPECT_EQ(shown.owner, form.hWnd());
    EXPECT_EQ(machine.files().wholeFolder(""), "T:\\out");
}

TEST_F(ListViewTest, SaveDialog_Cancelled_FailsIfToldTo) {
    form.dialog.FileName = "proposed";
    machine.answerSaveDialog(std::nullopt);
    form.dialog.ShowSave();
    EXPECT_EQ(form.dialog.FileName, "proposed");
    form.dialog.CancelError = true;
    machine.answerSaveDialog(std::nullopt);
    EXPECT_EQ(failureOf([&] { form.dialog.ShowSave(); }), 32755);
    form.unload();
    form.load();
    EXPECT_FALSE(form.dialog.CancelError);
    EXPECT_EQ(form.dialog.FileName, "");
}

} // namespace
