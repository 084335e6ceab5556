// The template designer: a document of rows, each a picture with its sound, transition and comment.
//
// The document lives in the form's controls, a row in three of them: row r of `ListView1`, counted from 1,
// goes with entry r - 1 of `lstImagePath` and of `lstSoundPath`. Both lists may be longer than the rows.
#pragma once

#include "startup/path_parser.h"
#include "toolkit/form.h"
#include "toolkit/frame.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/list_view.h"
#include "toolkit/option_button.h"
#include "toolkit/progress_bar.h"

#include <cstdint>
#include <optional>
#include <string>

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

    toolkit::ListView ListView1;
    toolkit::ListBox lstImagePath; // whole paths
    toolkit::ListBox lstSoundPath;
    toolkit::Frame Frame1; // the sound mode
    toolkit::OptionButton optSync1;
    toolkit::OptionButton optSync2;
    toolkit::OptionButton optAsync;
    toolkit::Frame Frame2; // lies over the list while a package is written
    toolkit::Label Label1;
    toolkit::ProgressBar ProgressBar1;

    std::string TemplateFile;       // whole path; "" for a new template
    std::string TemplateFolder;     // what relative names in the template begin with
    std::int16_t TemplateDirty = 0; // a flag: the rows have changed since the last load or save
    PathParser Parser;              // all routines share it

    /// Appends a blank row; gives the new number of rows.
    std::int16_t AddRow();
    void ClearRows();
    /// Reads `TemplateFile` into the rows; a failure is told in a message box.
    void PerformLoad();
    /// Sets `SoundMode` by the options, as a package is to hold it.
    void takeSoundMode();
    /// Writes the rows as a packaged screen saver; a failure is told in a message box.
    void WritePackage(const std::string& target);
    /// Removes rows without picture and sound, from `ListView1` alone; whether there was one.
    std::int16_t RemoveBlankRows();
    void UpdateThinking(const std::int32_t& current, const std::int32_t& total);

private:
    void Form_Unload();

    // The parts of `PerformLoad`.
    std::int16_t loadLine(const std::string& line, std::int16_t row);
    std::int16_t loadImage(const std::string& value);
    void loadDissolve(const std::string& value, std::int16_t row);
    std::int16_t loadSound(const std::string& value, std::int16_t row);
    void loadComment(const std::string& line, std::int16_t row);
    std::string inTemplateFolder(const std::string& value) const;

    // The parts of `WritePackage`.
    std::string refusal(const std::string& target);
    std::int64_t packageLength() const;
    std::optional<std::string> missingImage() const;
    bool hasImage(std::int16_t row) const;
    bool hasSound(std::int16_t row) const;
    void copyProgram(const std::string& target);
    void appendMedia(std::int16_t row);
    void appendDirectory(const std::string& target, std::int32_t directory);
};
