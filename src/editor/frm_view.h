// The picture preview of the item editor, which fills it before it shows it.
#pragma once

#include "resources/embedded.h"
#include "toolkit/command_button.h"
#include "toolkit/form.h"
#include "toolkit/stretched_image.h"

class frmView : public toolkit::Form {
public:
    frmView();

    // clang-format off

    // Meant so: a preview has one size, and isn't laid out as the show lays a picture out.
    toolkit::StretchedImage Image1{*this, {"Image1",   90,   90, 5370, 3255}};
    toolkit::CommandButton  Ok    {*this, {"Ok",     2385, 3420,  780,  780}, {"Ok", resources::done}};

    // clang-format on
};
