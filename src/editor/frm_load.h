// The picker of a template file.
#pragma once

#include "resources/embedded.h"
#include "toolkit/command_button.h"
#include "toolkit/control_name.h"
#include "toolkit/drive_list.h"
#include "toolkit/file_list.h"
#include "toolkit/folder_list.h"
#include "toolkit/form.h"

#include <string>

class frmLoad : public toolkit::Form {
public:
    frmLoad();

    // What was picked, for the caller to read when the form has gone. Both keep their values between two
    // openings: "Ok" without a click gives the earlier pick again.
    std::string SelectedFile;   // whole path; "" for none
    std::string SelectedFolder; // with a backslash at its end

    // The table of the dialog, in the order of the tab key.
    // clang-format off

    toolkit::ControlName   driveName {*this, "Drive"};
    toolkit::DriveList     Drive1    {*this, {"Drive1",      90,   90, 2535,  315}};
    toolkit::ControlName   folderName{*this, "Folder"};
    toolkit::FolderList    Dir1      {*this, {"Dir1",        90,  450, 2535, 3015}};
    toolkit::ControlName   fileName  {*this, "Template"};
    toolkit::FileList      File1     {*this, {"File1",     2745,   90, 2985, 3405}};
    toolkit::CommandButton cmdOk     {*this, {"cmdOk",     1935, 3645,  780,  780}, {.caption = "Ok", .icon = resources::done, .isDefault = true}};
    toolkit::CommandButton cmdCancel {*this, {"cmdCancel", 2790, 3645,  780,  780}, {.caption = "Cancel", .icon = resources::cancel, .isCancel = true}};

    // clang-format on

private:
    void Form_Load();
    void File1_Click();
    void File1_DblClick();
    void cmdCancel_Click();
};
