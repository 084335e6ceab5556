#include "settings/frm_about.h"

#include "toolkit/numbers.h"

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
    lblVersion.setCaption("Version " + toolkit::textOf(product::versionMajor) + "." +
                          toolkit::textOf(product::versionMinor) + "." +
                          toolkit::textOf(product::versionRevision));
    lblTitle.setCaption(product::title);
}
