// The about box.
#pragma once

#include "startup/product.h"
#include "toolkit/command_button.h"
#include "toolkit/form.h"
#include "toolkit/label.h"
#include "toolkit/line.h"

#include <string>

class frmAbout : public toolkit::Form {
public:
    frmAbout();

    // clang-format off

    toolkit::Label         lblTitle     {*this, {.control = {"lblTitle",      240,  240, 4920, 375}, .font = {"", 13.5F}}};
    toolkit::Label         lblVersion   {*this, {.control = {"lblVersion",    240,  660, 4920, 240}}};
    toolkit::Label         Label1       {*this, {.control = {"Label1",        240,  960, 4920, 240}, .caption = std::string("http://") + product::makerHost + product::webPath}};
    toolkit::Line          Line1        {*this, {"Line1",        240, 1380, 4920, 15}, {160, 160, 160}};
    toolkit::Line          Line2        {*this, {"Line2",        240, 1395, 4920, 15}, {255, 255, 255}};
    toolkit::Label         lblDisclaimer{*this, {.control = {"lblDisclaimer", 240, 1560, 4920, 240}, .caption = product::disclaimer}};
    toolkit::CommandButton cmdOK        {*this, {"cmdOK",       3960, 1980, 1200, 375}, {.caption = "OK", .isDefault = true, .isCancel = true}};

    // clang-format on

private:
    void Form_Load();
};
