#include "settings/frm_about.h"

#include <string>

frmAbout::frmAbout()
    : Form({.name = "frmAbout",
            .caption = "About Tessellarium",
            .width = 5400,
            .height = 2520,
            .inTaskBar = false,
            .dialog = true}) {
    loadEvent = [this] { Form_Load(); };
    cmdOK.click = [this] { unload(); };
}

void frmAbout::Form_Load() {
    lblVersion.setCaption(std::string("Version ") + product::version);
    lblTitle.setCaption(product::title);
}
