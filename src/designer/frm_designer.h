// The template designer: a document of rows, each a picture with its sound, transition and comment.
//
// The document lives in the form's controls, a row in three of them: row r of `ListView1`, counted from 1,
// goes with entry r - 1 of `lstImagePath` and of `lstSoundPath`. Both lists may be longer than the rows.
#pragma once

#include "resources/embedded.h"
#include "startup/path_parser.h"
#include "toolkit/command_button.h"
#include "toolkit/common_dialog.h"
#include "toolkit/control_name.h"
#include "toolkit/form.h"
#include "toolkit/frame.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/list_view.h"
#include "toolkit/menu.h"
#include "toolkit/numbers.h"
#include "toolkit/option_button.h"
#include "toolkit/progress_bar.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class frmEdit;

class frmDesigner : public toolkit::Form {
public:
    frmDesigner();

    /// The columns of `ListView1`.
    enum Column : std::int16_t {
        imagesColumn = 1,    // the picture's file name
        soundsColumn = 2,    // the sound's file name
        dissolvesColumn = 3, // a transition; "" for the general one
        commentsColumn = 4,  // one line, with "^" for each line break
    };
    static constexpr std::array columns = {imagesColumn, soundsColumn, dissolvesColumn, commentsColumn};

    std::string TemplateFile;       // whole path; "" for a new template
    std::string TemplateFolder;     // what relative names in the template begin with
    std::int16_t TemplateDirty = 0; // a flag: the rows have changed since the last load or save
    PathParser Parser;              // all routines share it

    // The table of the dialog, in the order of the tab key: each control with its name, left, top, width and
    // height in twips, and what else is its own.
    // clang-format off

    toolkit::MenuItem Help{*this, "&Help"};

    toolkit::ControlName   listName    {*this, "Items of the template"};
    toolkit::ListView      ListView1   {*this, {"ListView1",      60,   90, 9885, 4275}, {{"Images", 0.15F}, {"Sounds", 0.15F}, {"Dissolves", 0.15F}, {"Comments", 0.55F}}};
    toolkit::ListBox       lstImagePath{*this, {.name = "lstImagePath", .visible = false}}; // whole paths
    toolkit::ListBox       lstSoundPath{*this, {.name = "lstSoundPath", .visible = false}};

    // Lies over the list while a package is written
    toolkit::Frame         Frame2      {*this, {"Frame2",       2790, 1260, 5025,  975, false}};
    toolkit::Label         Label1      {Frame2, {.control = {"Label1", 90, 180, 4875, 285}}};
    toolkit::ControlName   progressName{Frame2, "Progress"};
    toolkit::ProgressBar   ProgressBar1{Frame2, {"ProgressBar1", 210,  570, 4665,  255}};

    toolkit::CommandButton cmdMoveUp   {*this, {"cmdMoveUp",      90, 4470,  780,  780}, {.caption = "Up",     .icon = resources::move_up,       .toolTip = "Move Item Up"}};
    toolkit::CommandButton cmdMoveDown {*this, {"cmdMoveDown",   930, 4470,  780,  780}, {.caption = "Down",   .icon = resources::move_down,     .toolTip = "Move Item Down"}};
    toolkit::CommandButton cmdInsert   {*this, {"cmdInsert",    1770, 4470,  780,  780}, {.caption = "Insert", .icon = resources::insert_item,   .toolTip = "Insert An Item"}};
    toolkit::CommandButton cmdDelete   {*this, {"cmdDelete",    2610, 4470,  780,  780}, {.caption = "Delete", .icon = resources::delete_item,   .toolTip = "Delete An Item"}};
    toolkit::CommandButton cmdClear    {*this, {"cmdClear",     3450, 4470,  780,  780}, {.caption = "Clear",  .icon = resources::clear_items,   .toolTip = "Clear All Items"}};
    toolkit::CommandButton cmdSave     {*this, {"cmdSave",      4950, 4470,  780,  780}, {.caption = "Save",   .icon = resources::save_template, .toolTip = "Save Template"}};
    toolkit::CommandButton cmdWriteSCR {*this, {"cmdWriteSCR",  5760, 4470,  780,  780}, {.caption = "Create", .icon = resources::write_package}};
    toolkit::CommandButton cmdLoad     {*this, {"cmdLoad",      6570, 4470,  780,  780}, {.caption = "Load",   .icon = resources::load_template, .toolTip = "Load Template"}};
    toolkit::CommandButton cmdOk       {*this, {"cmdOk",        7650, 4470,  780,  780}, {.caption = "Ok",     .icon = resources::done,          .toolTip = "Exit"}};

    toolkit::Frame         Frame1      {*this, {"Frame1",       8580, 4410, 1320, 1230}, {"Sound Mode"}};
    toolkit::OptionButton  optSync1    {Frame1, {"optSync1",     270,  270,  915,  285}, {"Sync1", true}};
    toolkit::OptionButton  optSync2    {Frame1, {"optSync2",     270,  600,  870,  285}, {"Sync2"}};
    toolkit::OptionButton  optAsync    {Frame1, {"optAsync",     270,  900,  825,  285}, {"Async"}};

    toolkit::CommonDialog  CommonDialog1{*this};

    // clang-format on

    /// The entry of a row, 1-based, in `lstImagePath` and `lstSoundPath`.
    static std::int16_t entryOf(std::int16_t row) { return toolkit::wrap16(row - 1); }
    const std::string& imagePath(std::int16_t row) const { return lstImagePath.list(entryOf(row)); }
    const std::string& soundPath(std::int16_t row) const { return lstSoundPath.list(entryOf(row)); }

    /// Appends a blank row; gives the new number of rows.
    std::int16_t AddRow();
    /// Leaves no row, and no path.
    void ClearRows();
    /// Reads `TemplateFile` into the rows; a failure is told in a message box.
    void PerformLoad();
    /// Writes the rows as a template, which becomes the current one. Fails as the writing of a file does;
    /// the file stays then, cut short or empty.
    void WriteTemplate(const std::string& name);
    /// Whether the user wants the changes saved.
    std::int16_t AskToSave();
    /// Sets `SoundMode` by the options, as a package is to hold it.
    void takeSoundMode();
    /// Writes the rows as a packaged screen saver; a failure is told in a message box.
    void WritePackage(const std::string& target);
    /// Removes rows without picture and sound, from `ListView1` alone; whether there was one.
    std::int16_t RemoveBlankRows();
    /// Shows `current` / `total` in the progress bar, which is drawn only when that changes it.
    void UpdateThinking(std::int32_t current, std::int32_t total);

private:
    void bindHandlers();
    void Form_Load();
    void Form_Unload();
    void ListView1_DblClick();
    void ListView1_KeyDown(std::int16_t KeyCode, std::int16_t Shift);
    void cmdInsert_Click();
    void cmdDelete_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    void cmdClear_Click();
    void cmdSave_Click();
    void cmdLoad_Click();
    void cmdWriteSCR_Click();

    /// Asks for the name of a file to write; a cancelled dialog is failure 32755.
    std::string askForFile(const char* extension, const char* filter, const std::string& proposed);
    void takeEdited(const frmEdit& editor);
    void copyRow(std::int16_t from, std::int16_t to);
    void exchangeRows(std::int16_t row, std::int16_t partner);

    // The parts of `PerformLoad`.
    std::int16_t loadLine(const std::string& line, std::int16_t row);
    std::int16_t loadImage(const std::string& value);
    void loadDissolve(const std::string& value, std::int16_t row);
    std::int16_t loadSound(const std::string& value, std::int16_t row);
    void loadComment(const std::string& line, std::int16_t row);
    std::string inTemplateFolder(const std::string& value) const;

    /// Whether it is empty but for its paths.
    bool isBlank(std::int16_t row) const;
    bool hasImage(std::int16_t row) const { return !ListView1.text(row, imagesColumn).empty(); }
    bool hasSound(std::int16_t row) const { return !ListView1.text(row, soundsColumn).empty(); }

    // The parts of `WritePackage`.
    /// What a writing keeps through its yields, in which other routines run, and another writing as well.
    struct Writing {
        std::string target;
        std::int16_t soundMode;
        int package, source; // file numbers
    };
    static Writing newWriting(const std::string& target);
    void beginWriting();
    void finishWriting(std::int16_t removed);
    std::string refusal(const Writing& writing) const;
    std::int64_t packageLength(std::int16_t soundMode) const;
    std::optional<std::string> missingImage() const;
    void copyProgram(const Writing& writing);
    bool appendShow(const Writing& writing, std::int64_t programLength);
    void appendMedia(const Writing& writing, std::int16_t row);
    void appendDirectory(const Writing& writing, std::int32_t directory);
};
