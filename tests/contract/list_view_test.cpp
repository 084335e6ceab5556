// Lists of rows in columns, and progress bars.
#include "contract/contract_test.h"
#include "support/keys.h"
#include "toolkit/command_button.h"
#include "toolkit/frame.h"
#include "toolkit/list_view.h"
#include "toolkit/progress_bar.h"

#include <utility>

namespace contract {

namespace {

using namespace keys;

class RowsForm : public toolkit::Form {
public:
    RowsForm()
        : Form({.name = "RowsForm",
                .caption = "Contract Rows",
                .width = 6000,
                .height = 4500,
                .dialog = true}) {
        rows.click = [this] { events.emplace_back("click"); };
        rows.dblClick = [this] { events.emplace_back("double click"); };
        rows.keyDown = [this](int key, int) { events.push_back("key " + std::to_string(key)); };
        button.click = [this] { events.emplace_back("button"); };
    }

    toolkit::ListView rows{*this, {"rows", 0, 0, 6000, 3000}, {{"One", 0.4F}, {"Two", 0.6F}}};
    toolkit::CommandButton button{
        *this, {"button", 0, 3000, 780, 780}, {.caption = "OK", .isDefault = true, .toolTip = "Tip"}};
    toolkit::Frame frame{*this, {"frame", 1500, 3300, 4500, 900, false}};
    toolkit::ProgressBar progress{frame, {"progress", 150, 300, 4200, 450}};

    std::vector<std::string> events;
    std::vector<std::string> take() { return std::exchange(events, {}); }
};

class Rows : public MachineTest {
protected:
    Rows() {
        form.load();
        for (const char* text : {"first", "second", "third"}) {
            form.rows.addRow();
            form.rows.setText(form.rows.rowCount(), 1, text);
        }
        form.show();
        driver->settle();
        form.take();
    }

    void press(int key) {
        driver->pressKey(key);
        driver->settle();
    }
    /// Pixels of the screen, from the upper left corner of an element.
    sys::Point at(const toolkit::Element& element, int x, int y) const {
        return {static_cast<int>((form.left() + element.left()) / 15) + x,
                static_cast<int>((form.top() + element.top()) / 15) + y};
    }
    void click(sys::Point point) {
        driver->moveMouse(point);
        driver->pressButton(sys::leftButton);
        driver->releaseButton(sys::leftButton);
        driver->settle();
    }
    std::vector<sys::Color> look() { return seen(placeOf(form.rows)); }
    sys::PixelRect placeOf(const toolkit::Element& element) const {
        const sys::Point corner = at(element, 0, 0);
        return {corner.x, corner.y, corner.x + static_cast<int>(element.width() / 15),
                corner.y + static_cast<int>(element.height() / 15)};
    }

    RowsForm& form = application.form<RowsForm>();
    static constexpr int inFirstRow = 24; // pixels below the list's upper edge
    static constexpr int belowTheRows = 150;
};

} // namespace

TEST_F(Rows, FirstRow_IsSelectedAndHasTheKeyboard) {
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_THAT(form.take(), ElementsAre("key 40", "click"));
}

TEST_F(Rows, Click_SelectsARow_AndBesideTheRowsNone) {
    form.rows.selectRow(3);
    click(at(form.rows, 20, inFirstRow));
    EXPECT_EQ(form.rows.selectedRow(), 1);
    EXPECT_THAT(form.take(), ElementsAre("click"));
    click(at(form.rows, 20, belowTheRows));
    EXPECT_EQ(form.rows.selectedRow(), 1);
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 2) << "the row is still the list's";
}

TEST_F(Rows, SelectedRow_ChosenAgain_RaisesNothing) {
    form.rows.selectRow(3);
    click(at(form.rows, 20, inFirstRow));
    EXPECT_THAT(form.take(), ElementsAre("click"));
    click(at(form.rows, 20, inFirstRow));
    EXPECT_THAT(form.take(), IsEmpty());
    press(home);
    EXPECT_THAT(form.take(), ElementsAre("key 36"));
}

TEST_F(Rows, RightClick_BesideTheRows_LeavesWhatIsSelected) {
    const auto before = look();
    driver->moveMouse(at(form.rows, 20, belowTheRows));
    driver->pressButton(sys::rightButton);
    driver->releaseButton(sys::rightButton);
    driver->settle();
    EXPECT_EQ(look(), before);
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Rows, Letter_SelectsTheNextRowThatBeginsWithIt) {
    press('T');
    EXPECT_EQ(form.rows.selectedRow(), 3);
    EXPECT_THAT(form.take(), ElementsAre("key 84", "click"));
}

TEST_F(Rows, Click_OnAnyColumn_SelectsTheRow) {
    form.rows.selectRow(3);
    click(at(form.rows, 300, inFirstRow));
    EXPECT_EQ(form.rows.selectedRow(), 1);
}

TEST_F(Rows, DoubleClick_ActivatesARow_AndBesideTheRowsNone) {
    driver->moveMouse(at(form.rows, 20, inFirstRow));
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(), testing::Contains("double click").Times(1));
    driver->moveMouse(at(form.rows, 20, belowTheRows));
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(), Not(testing::Contains("double click")));
}

TEST_F(Rows, Keys_MoveWithinTheRows) {
    press(end);
    EXPECT_EQ(form.rows.selectedRow(), 3);
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 3);
    press(home);
    EXPECT_EQ(form.rows.selectedRow(), 1);
}

TEST_F(Rows, Enter_ActivatesTheRowAndIsNoClickOnTheDefaultButton) {
    press(enter);
    EXPECT_THAT(form.take(), ElementsAre("key 13", "double click"));
    press(deletion);
    EXPECT_THAT(form.take(), ElementsAre("key 46"));
}

TEST_F(Rows, Selection_ThatTheProgramMakes_RaisesNothing) {
    form.rows.selectRow(2);
    form.rows.removeRow(2);
    driver->settle();
    EXPECT_EQ(form.rows.selectedRow(), 2);
    EXPECT_THAT(form.take(), IsEmpty());
    press(down);
    EXPECT_EQ(form.rows.selectedRow(), 2) << "of two";
}

TEST_F(Rows, Texts_ThatChange_AreSeen) {
    const auto before = look();
    form.rows.setText(2, 2, "another text");
    driver->settle();
    const auto changed = look();
    EXPECT_NE(changed, before);
    form.rows.setText(2, 2, "");
    driver->settle();
    EXPECT_EQ(look(), before);
    form.rows.removeRow(3);
    driver->settle();
    EXPECT_NE(look(), before);
}

TEST_F(Rows, ManyRows_ComeIntoSightWhenTheyAreSelected) {
    for (int count = 0; count < 500; ++count) {
        form.rows.addRow();
        form.rows.setText(form.rows.rowCount(), 1, "one of many");
    }
    driver->settle();
    const auto top = look();
    press(end);
    EXPECT_EQ(form.rows.selectedRow(), 503);
    EXPECT_NE(look(), top);
    form.rows.clearRows();
    form.rows.addRow();
    driver->settle();
    press(end);
    EXPECT_EQ(form.rows.selectedRow(), 1);
}

TEST_F(Rows, HandlerThatUnloadsTheForm_EndsAllReports) {
    form.rows.dblClick = [this] { form.unload(); };
    driver->moveMouse(at(form.rows, 20, inFirstRow));
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_FALSE(form.loaded());
}

TEST_F(Rows, ProgressBar_FillsFromTheLeft) {
    form.frame.setVisible(true);
    form.progress.setValue(0);
    driver->settle();
    sys::PixelRect bar = placeOf(form.frame);
    bar = {bar.left + 12, bar.top + 30, bar.left + 288, bar.top + 40};
    const auto empty = seen(bar);
    const auto differing = [&] {
        const auto now = seen(bar);
        std::size_t count = 0;
        for (std::size_t pixel = 0; pixel < now.size(); ++pixel) {
            count += now[pixel] != empty[pixel] ? 1U : 0U;
        }
        return count;
    };
    form.progress.setValue(40);
    form.progress.refresh();
    ASSERT_TRUE(driver->waitUntil([&] { return differing() > 0; }));
    driver->settle();
    const auto some = differing();
    form.progress.setValue(100);
    form.progress.refresh();
    EXPECT_TRUE(driver->waitUntil([&] { return differing() > some; }));
}

} // namespace contract
