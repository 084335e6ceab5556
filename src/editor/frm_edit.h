// The item editor: the picture, the sound, the transition and the comment of one row of a template.
//
// It changes no row itself. Its caller loads it, points its lists at what the row names, calls `InitEdit`,
// shows it modally, and writes those columns of the row whose flag is set then.
#pragma once

#include "resources/embedded.h"
#include "toolkit/command_button.h"
#include "toolkit/control_name.h"
#include "toolkit/drive_list.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/file_list.h"
#include "toolkit/folder_list.h"
#include "toolkit/form.h"
#include "toolkit/label.h"
#include "toolkit/menu.h"
#include "toolkit/text_box.h"

#include <cstdint>
#include <string>

class frmEdit : public toolkit::Form {
public:
    frmEdit();

    // What the user picked, for the caller to read when the form has gone. Each means something only with its
    // flag, which is `True` or `False`.
    std::string ItemImageName; // without folder
    std::string ItemImagePath; // whole path
    std::string ItemSoundName;
    std::string ItemSoundPath;
    std::string ItemDissolve;
    std::string ItemComment; // one line, with "^" for each line break
    std::int16_t ImageChanged = 0;
    std::int16_t SoundChanged = 0;
    std::int16_t CommentChanged = 0;
    std::int16_t DissolveChanged = 0; // also set for a row that had no transition

    /// Takes the row: names without folder, "" for none; the comment with real line breaks. The lists must
    /// stand where they are to begin.
    void InitEdit(const std::string& image, const std::string& sound, const std::string& dissolve,
                  const std::string& comment);

    // The table of the dialog, in the order of the tab key.
    // clang-format off

    toolkit::MenuItem mnuHelp{*this, "&Help"};

    toolkit::ControlName   imageDriveName  {*this, "Drive of the image"};
    toolkit::DriveList     Drive1          {*this, {"Drive1",            45,   45, 2625,  315}};
    toolkit::ControlName   imageFolderName {*this, "Folder of the image"};
    toolkit::FolderList    Dir1            {*this, {"Dir1",              45,  540, 2625, 1665}};
    toolkit::Label         lblOriginalImage{*this, {.control = {"lblOriginalImage", 2790, 135, 4650, 195}, .caption = "Image File:", .path = true}};
    toolkit::FileList      File1           {*this, {"File1",           2745,  360, 3705, 1845}};
    toolkit::CommandButton cmdResetImage   {*this, {"cmdResetImage",   6525,  540,  780,  780}, {"Reset", resources::reset}};
    toolkit::CommandButton cmdView         {*this, {"cmdView",         6525, 1395,  780,  780}, {"View", resources::view}};

    toolkit::ControlName   soundDriveName  {*this, "Drive of the sound"};
    toolkit::DriveList     Drive2          {*this, {"Drive2",            45, 2295, 2625,  315}};
    toolkit::ControlName   soundFolderName {*this, "Folder of the sound"};
    toolkit::FolderList    Dir2            {*this, {"Dir2",              45, 2700, 2625, 1665}};
    toolkit::Label         lblOriginalSound{*this, {.control = {"lblOriginalSound", 2745, 2340, 4650, 195}, .caption = "Sound File:", .path = true}};
    toolkit::FileList      File2           {*this, {"File2",           2745, 2565, 3705, 1845}};
    toolkit::CommandButton cmdResetSound   {*this, {"cmdResetSound",   6525, 2745,  780,  780}, {"Reset", resources::reset}};
    toolkit::CommandButton cmdPlay         {*this, {"cmdPlay",         6525, 3600,  780,  780}, {"Play", resources::play}};

    toolkit::Label         Label1          {*this, {.control = {"Label1",  45, 4545, 1275, 195}, .caption = "Dissolve", .alignment = sys::Alignment::right}};
    toolkit::DropDownList  cmboDissolve    {*this, {"cmboDissolve",    1350, 4500, 5100,  315}};
    toolkit::ControlName   commentName     {*this, "Comment"};
    toolkit::TextBox       txtComment      {*this, {"txtComment",        45, 4860, 6405, 1365}, {.multiLine = true}};
    toolkit::CommandButton cmdResetComment {*this, {"cmdResetComment", 6525, 5130,  780,  780}, {"Reset", resources::reset}};
    toolkit::CommandButton cmdOk           {*this, {"cmdOk",           2520, 6300,  780,  780}, {"Ok", resources::done}};
    toolkit::CommandButton cmdCancel       {*this, {"cmdCancel",       3375, 6300,  780,  780}, {.caption = "Cancel", .icon = resources::cancel, .isCancel = true}};

    // clang-format on

private:
    void bindHandlers();
    void Form_Load();
    void txtComment_KeyPress(std::int16_t& KeyAscii);
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdResetImage_Click();
    void cmdResetSound_Click();
    void cmdResetComment_Click();
    void cmdView_Click();
    void cmdPlay_Click();
    void EncodeComment();
    void clearFlags();

    // The row as it was handed in, and where the lists stood then.
    std::string OriginalComment;
    std::string OriginalDissolve;
    std::string OriginalImage;
    std::string OriginalSound;
    std::string OriginalImageFolder;
    std::string OriginalSoundFolder;
};
