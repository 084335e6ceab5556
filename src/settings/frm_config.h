// The settings dialog. It works on the shared settings themselves; "Done" alone writes them to the store.
#pragma once

#include "resources/embedded.h"
#include "startup/path_parser.h"
#include "toolkit/check_box.h"
#include "toolkit/command_button.h"
#include "toolkit/control_name.h"
#include "toolkit/drive_list.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/file_list.h"
#include "toolkit/folder_list.h"
#include "toolkit/form.h"
#include "toolkit/frame.h"
#include "toolkit/label.h"
#include "toolkit/line.h"
#include "toolkit/menu.h"
#include "toolkit/option_button.h"
#include "toolkit/picture_box.h"
#include "toolkit/scroll_bar.h"
#include "toolkit/text_box.h"

#include <string>

class frmConfig : public toolkit::Form {
public:
    frmConfig();

    // The table of the dialog, in the order of the tab key: each control with its name, left, top, width and
    // height in twips, and what else is its own.
    // clang-format off

    toolkit::MenuItem Help{*this, "&Help"};
    toolkit::MenuItem Contents{Help, "&Contents"};
    toolkit::MenuItem HomePage{Help, "&Home Page"};
    toolkit::MenuItem About{Help, "&About"};

    // The left column
    toolkit::CheckBox      chkTemplateMode       {*this, {"chkTemplateMode",           60,   60, 1455,  195}, "Template Mode"};
    toolkit::CommandButton cmdSelectTemplate     {*this, {"cmdSelectTemplate",         60,  360,  780,  780}, {"Select", resources::select_template}};
    toolkit::CommandButton cmdCreateTemplate     {*this, {"cmdCreateTemplate",        900,  360,  780,  780}, {"New", resources::new_template}};
    toolkit::CommandButton cmdEditTemplate       {*this, {"cmdEditTemplate",         1740,  360,  780,  780}, {"Edit", resources::edit_template}};
    toolkit::Line          Line3                 {*this, {"Line3",                      0, 1200, 3120,   15}, ruleColor};
    toolkit::ControlName   contentName           {*this, "Template or folder"};
    toolkit::TextBox       txtImageListFile      {*this, {"txtImageListFile",          60, 1320, 2955,  285}, {"(no template or folder selected)"}};
    toolkit::Line          Line1                 {*this, {"Line1",                      0, 1680, 3120,   15}, ruleColor};
    toolkit::CheckBox      chkFolderMode         {*this, {"chkFolderMode",             60, 1800, 1515,  195}, "Folder Mode"};
    toolkit::CommandButton cmdSelectFolder       {*this, {"cmdSelectFolder",           60, 2100,  780,  780}, {"Select", resources::select_folder}};
    toolkit::Line          Line2                 {*this, {"Line2",                      0, 2940, 3120,   15}, ruleColor};
    toolkit::Label         lblDelayInterval      {*this, centered({"lblDelayInterval", 60, 3000, 2900,  200}, "Delay Interval (seconds):")};
    toolkit::ScrollBar     ScrollInterval        {*this, {"ScrollInterval",            60, 3240, 2990,  285}, {.min =  1, .max = 120, .smallChange = 1, .largeChange =  1, .value =  5}};
    toolkit::Label         lblDissolveSize       {*this, centered({"lblDissolveSize",  60, 3540, 2900,  200}, "Dissolve Size: ")};
    toolkit::ScrollBar     ScrollDissolveSize    {*this, {"ScrollDissolveSize",        60, 3780, 2990,  285}, {.min = 10, .max =  50, .smallChange = 2, .largeChange = 10, .value = 10}};
    toolkit::Label         lblDissolveDelay      {*this, centered({"lblDissolveDelay", 60, 4080, 2900,  200}, "Dissolve Delay:")};
    toolkit::ScrollBar     ScrollDissolveDelay   {*this, {"ScrollDissolveDelay",       60, 4320, 2990,  285}, {.min =  0, .max = 200, .smallChange = 1, .largeChange = 10, .value =  0}};
    toolkit::Label         lblMouseSensitivity   {*this, centered({"lblMouseSensitivity", 60, 4680, 2900, 200}, "Mouse Sensitivity")};
    toolkit::ScrollBar     ScrollMouseSensitivity{*this, {"ScrollMouseSensitivity",    60, 4920, 2990,  285}, {.min = 10, .max = 500, .smallChange = 1, .largeChange = 10, .value = 10}};
    toolkit::CheckBox      chkIgnoreMouse        {*this, {"chkIgnoreMouse",          3120, 4980, 1305,  225}, "Ignore Mouse"};

    // The right-hand panel: one of three frames at the same place
    toolkit::Frame         TextFrame             {*this, {"TextFrame",               3120,    0, 5115, 3075}};
    toolkit::ControlName   helperName            {TextFrame, "What to do"};
    toolkit::TextBox       txtHelper             {TextFrame, {"txtHelper",            120,  240, 4875, 2715}, {.text = "Welcome To Tessellarium", .multiLine = true, .locked = true}};

    toolkit::Frame         TemplateFrame         {*this, {"TemplateFrame",           3120,    0, 5115, 3075}};
    toolkit::ControlName   templateDriveName     {TemplateFrame, "Drive"};
    toolkit::DriveList     Drive1                {TemplateFrame, {"Drive1",           120,  180, 2355,  315}};
    toolkit::ControlName   templateFolderName    {TemplateFrame, "Folder"};
    toolkit::FolderList    Dir1                  {TemplateFrame, {"Dir1",             120,  660, 2355, 2340}};
    toolkit::ControlName   templateFileName      {TemplateFrame, "Template"};
    toolkit::FileList      File1                 {TemplateFrame, {"File1",           2520,  180, 2475, 2820}};

    toolkit::Frame         FolderFrame           {*this, {"FolderFrame",             3120,    0, 5115, 3075}};
    toolkit::ControlName   pictureDriveName      {FolderFrame, "Drive"};
    toolkit::DriveList     Drive2                {FolderFrame, {"Drive2",             120,  180, 2355,  315}};
    toolkit::ControlName   pictureFolderName     {FolderFrame, "Folder"};
    toolkit::FolderList    Dir2                  {FolderFrame, {"Dir2",               120,  720, 2355, 1890}};
    toolkit::ControlName   picturesName          {FolderFrame, "Pictures in the folder"};
    toolkit::FileList      File2                 {FolderFrame, {"File2",             2580,  180, 2415, 2430}, "*.jpg;*.jpeg;*.bmp;*.gif; *.jpe; *.wmf"};
    toolkit::Label         Label8                {FolderFrame, {.control = {"Label8", 120, 2760, 1080, 210}, .caption = "Dissolve Type:"}};
    toolkit::DropDownList  Combo1                {FolderFrame, {"Combo1",            1200, 2700, 3735,  315}};

    // The pairs of options
    toolkit::Frame         SizeFrame             {*this, {"SizeFrame",               3240, 3180, 1215,  795}, {.border = false}};
    toolkit::Label         lblSize               {SizeFrame, {.control = {"lblSize",    0,   30, 1215,  225}, .caption = "Size"}};
    toolkit::OptionButton  chkFullScreen         {SizeFrame, {"chkFullScreen",          0,  300, 1215,  225}, {"Full Screen"}};
    toolkit::OptionButton  chkOriginal           {SizeFrame, {"chkOriginal",            0,  570, 1215,  225}, {"Original"}};

    toolkit::Frame         PlacementFrame        {*this, {"PlacementFrame",          4740, 3180, 1155,  795}, {.border = false}};
    toolkit::Label         lblPlacement          {PlacementFrame, {.control = {"lblPlacement", 0, 30, 1155, 225}, .caption = "Placement"}};
    toolkit::OptionButton  chkPositionRandom     {PlacementFrame, {"chkPositionRandom",   0, 300, 1155, 225}, {"Random"}};
    toolkit::OptionButton  chkPositionCentered   {PlacementFrame, {"chkPositionCentered", 0, 540, 1155, 225}, {"Centered"}};

    toolkit::Frame         OrderFrame            {*this, {"OrderFrame",              6120, 3180, 1215,  795}, {.border = false}};
    toolkit::Label         lblOrder              {OrderFrame, {.control = {"lblOrder",  0,   30, 1215,  225}, .caption = "Order"}};
    toolkit::OptionButton  chkOrderRandom        {OrderFrame, {"chkOrderRandom",        0,  300, 1215,  225}, {"Random"}};
    toolkit::OptionButton  chkOrderSequential    {OrderFrame, {"chkOrderSequential",    0,  600, 1215,  195}, {"Sequential"}};

    toolkit::PictureBox    Picture1              {*this, banner({"Picture1",         3150, 4260, 4170,  495})};
    toolkit::CommandButton cmdExit               {*this, {"cmdExit",                 7440, 3480,  780,  780}, {"Done", resources::done}};
    toolkit::CommandButton cmdCancel             {*this, {"cmdCancel",               7440, 4380,  780,  780}, {"Cancel", resources::cancel}};

    // clang-format on

    /// Puts frames, guidance, mode boxes, enabled states and folder lists in line with the mode.
    void ArrangeMode();
    /// What there is to do in the present mode, into `txtHelper`.
    void ShowHelperText();
    /// `ImagePath` and `ImageListFile` from the text of `txtImageListFile`.
    void SyncPathsFromText();

private:
    static constexpr sys::Color ruleColor{160, 160, 160};
    static toolkit::LabelDesign centered(const toolkit::Design& control, const std::string& caption);
    static toolkit::PictureBoxDesign banner(const toolkit::Design& control);

    void bindHandlers();
    void Form_Load();
    void chkFolderMode_Click();
    void chkTemplateMode_Click();
    void cmdExit_Click();
    void cmdSelectFolder_Click();
    void cmdSelectTemplate_Click();
    void cmdCreateTemplate_Click();
    void cmdEditTemplate_Click();
    void Drive1_Change();
    void Dir1_Change();
    void File1_Click();
    void Drive2_Change();
    void Dir2_Change();
    void Contents_Click();
    void HomePage_Click();
    void openHomePage();

    void loadOptions();
    void loadDissolveTypes();
    void showFolder(toolkit::DriveList& drives, toolkit::FolderList& folders);
    void takeFolder();
    bool templateMayBeSaved();
    void save();

    PathParser Parser;
};
