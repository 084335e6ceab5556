#include "editor/frm_play.h"

frmPlay::frmPlay()
    : Form({.name = "frmPlay",
            .caption = "Sound Player",
            .width = 4050,
            .height = 4530,
            .inTaskBar = false,
            .dialog = true}) {
    cmdOk.click = [this] { unload(); };
}
