#include "editor/frm_view.h"

frmView::frmView()
    : Form({.name = "frmView",
            .caption = "Image Viewer",
            .width = 5580,
            .height = 4320,
            .inTaskBar = false,
            .dialog = true}) {
    Ok.click = [this] { unload(); };
}
