// The designer's document.
#include "designer/frm_designer.h"

#include "settings/frm_config.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"

#include <cstddef>

namespace {

constexpr const char* designerCaption = "Template Designer";
constexpr std::size_t columnCount = 4;

} // namespace

frmDesigner::frmDesigner()
    : Form({.name = "frmDesigner",
            .caption = designerCaption,
            .width = 10005,
            .height = 5730,
            .dialog = true}),
      ListView1(*this, {.name = "ListView1", .left = 60, .top = 90, .width = 9885, .height = 4275},
                columnCount),
      lstImagePath(*this, {.name = "lstImagePath", .visible = false}),
      lstSoundPath(*this, {.name = "lstSoundPath", .visible = false}),
      Frame1(*this, {.name = "Frame1", .left = 8580, .top = 4410, .width = 1320, .height = 1230}),
      optSync1(Frame1, {.name = "optSync1", .left = 270, .top = 270, .width = 915, .height = 285},
               {.value = true}),
      optSync2(Frame1, {.name = "optSync2", .left = 270, .top = 600, .width = 870, .height = 285}),
      optAsync(Frame1, {.name = "optAsync", .left = 270, .top = 900, .width = 825, .height = 285}),
      Frame2(*this,
             {.name = "Frame2", .left = 2790, .top = 1260, .width = 5025, .height = 975, .visible = false}),
      Label1(*this, {.control = {.name = "Label1", .left = 90, .top = 180, .width = 4875, .height = 285}}),
      ProgressBar1(*this, {.name = "ProgressBar1", .left = 210, .top = 570, .width = 4665, .height = 255}) {
    unloadEvent = [this](bool&) { Form_Unload(); };
}

/// However the template came to be named, the settings dialog goes on with it.
void frmDesigner::Form_Unload() {
    toolkit::Application::current().form<frmConfig>().txtImageListFile.setText(TemplateFile);
}

std::int16_t frmDesigner::AddRow() {
    ListView1.addRow();
    lstImagePath.addItem("");
    lstSoundPath.addItem("");
    ListView1.refresh();
    return ListView1.rowCount();
}

void frmDesigner::ClearRows() {
    ListView1.clearRows();
    lstImagePath.clear();
    lstSoundPath.clear();
}

void frmDesigner::takeSoundMode() {
    shared.SoundMode = noSound;
    if (optSync1.value()) {
        shared.SoundMode = soundWithImage;
    } else if (optSync2.value()) {
        shared.SoundMode = imageWaitsSound;
    } else if (optAsync.value()) {
        shared.SoundMode = soundList;
    }
}
