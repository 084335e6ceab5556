// A dialog with a control of each kind, whose events are logged.
#pragma once

#include "toolkit/check_box.h"
#include "toolkit/command_button.h"
#include "toolkit/drive_list.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/file_list.h"
#include "toolkit/folder_list.h"
#include "toolkit/frame.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/option_button.h"
#include "toolkit/scroll_bar.h"
#include "toolkit/text_box.h"

#include "unit/toolkit/toolkit_fixture.h"

#include <string>
#include <utility>
#include <vector>

class DialogForm : public PlainForm {
public:
    DialogForm()
        : PlainForm(
              {.name = "DialogForm", .caption = "Dialog", .width = 6000, .height = 6000, .dialog = true}) {}

    toolkit::MenuItem menu{*this, "&Menu"};
    toolkit::MenuItem first{menu, "&First"};
    toolkit::MenuItem second{menu, "&Second"};
    toolkit::MenuItem alone{*this, "&Alone"};

    toolkit::CheckBox check{*this, {"check", 0, 0, 1500, 300}, "Check"};
    toolkit::TextBox text{*this, {"text", 0, 300, 1500, 300}, {"design"}};
    toolkit::ScrollBar bar{*this,
                           {"bar", 0, 600, 1500, 300},
                           {.min = 10, .max = 50, .smallChange = 2, .largeChange = 10, .value = 20}};
    toolkit::Frame frame{*this, {"frame", 1500, 0, 1500, 900}, {"Frame"}};
    toolkit::OptionButton one{frame, {"one", 0, 0, 1500, 300}, {"One", true}};
    toolkit::OptionButton two{frame, {"two", 0, 300, 1500, 300}, {"Two"}};
    toolkit::OptionButton three{frame, {"three", 0, 600, 1500, 300}, {"Three"}};
    toolkit::OptionButton other{*this, {"other", 1500, 900, 1500, 300}, {"Other", true}};
    toolkit::Frame hidden{*this, {"hidden", 3000, 0, 3000, 3000, false}};
    toolkit::DriveList drives{hidden, {"drives", 0, 0, 1500, 300}};
    toolkit::FolderList folders{hidden, {"folders", 0, 300, 1500, 1500}};
    toolkit::FileList files{hidden, {"files", 1500, 300, 1500, 1500}, " *.jpg;*.gif ; *.b* ;"};
    toolkit::ListBox list{*this, {"list", 0, 1500, 1500, 1500}};
    toolkit::DropDownList choice{*this, {"choice", 1500, 1500, 1500, 300}};
    toolkit::CommandButton ok{*this, {"ok", 0, 4500, 780, 780}, {.caption = "OK", .isDefault = true}};
    toolkit::CommandButton cancel{
        *this, {"cancel", 900, 4500, 780, 780}, {.caption = "Cancel", .isCancel = true}};
};

class Dialog : public ToolkitFixture {
protected:
    Dialog() {
        machine.files().addMemoryDrive('C');
        machine.files().addFolder("C:\\Pics\\Old");
        machine.files().addFolder("C:\\Pics\\New");
        for (const char* name : {"b.gif", "a.jpg", "c.txt", "d.bmp"}) {
            machine.files().addFile(std::string("C:\\Pics\\") + name, "");
        }
        machine.files().setCurrentFolder("C:\\Pics");
        logged("check click", form.check.click);
        logged("text change", form.text.change);
        logged("bar change", form.bar.change);
        logged("one click", form.one.click);
        logged("two click", form.two.click);
        logged("three click", form.three.click);
        logged("other click", form.other.click);
        logged("drives change", form.drives.change);
        logged("folders change", form.folders.change);
        logged("files click", form.files.click);
        logged("list click", form.list.click);
        logged("list double click", form.list.dblClick);
        logged("choice click", form.choice.click);
        logged("ok click", form.ok.click);
        logged("cancel click", form.cancel.click);
        logged("first", form.first.click);
        logged("second", form.second.click);
        logged("alone", form.alone.click);
    }

    void logged(const std::string& text, toolkit::Event<>& event) {
        event = [this, text] { log(text); };
    }

    /// The texts of a list, first to last.
    static std::vector<std::string> textsOf(const toolkit::ItemList& list) {
        std::vector<std::string> texts;
        for (std::int16_t index = 0; index < list.listCount(); ++index) {
            texts.push_back(list.list(index));
        }
        return texts;
    }
    std::vector<std::string> take() { return std::exchange(events, {}); }
    void press(int keyCode, int shift = 0) {
        machine.user().press(keyCode, shift);
        machine.runUntilIdle();
    }
    /// In pixels of the screen.
    sys::Point middleOf(toolkit::Element& element) {
        const sys::PixelRect place = machine.window(element.hWnd())->screenRect();
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    /// So many files with names in the order of their numbers, from 1000.jpg.
    void addFiles(const std::string& folder, int count) {
        for (int number = 0; number < count; ++number) {
            machine.files().addFile(folder + "\\" + std::to_string(1000 + number) + ".jpg", "");
        }
    }
    const sys::simulated::ListWindow& filesWindow() {
        return dynamic_cast<const sys::simulated::ListWindow&>(*machine.window(form.files.hWnd()));
    }
    std::string focusedName() {
        const std::vector<const toolkit::Element*> elements{
            &form.check, &form.text,   &form.bar, &form.one,    &form.two,    &form.three,   &form.other,
            &form.list,  &form.choice, &form.ok,  &form.cancel, &form.drives, &form.folders, &form.files};
        for (const auto* element : elements) {
            if (machine.focusedWindow() == const_cast<toolkit::Element*>(element)->hWnd()) {
                return element->name();
            }
        }
        return "none";
    }

    DialogForm& form = application.form<DialogForm>();
};
