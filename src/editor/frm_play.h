// The sound preview of the item editor, which fills it before it shows it.
#pragma once

#include "resources/embedded.h"
#include "toolkit/command_button.h"
#include "toolkit/form.h"
#include "toolkit/player_panel.h"

class frmPlay : public toolkit::Form {
public:
    frmPlay();

    // clang-format off

    toolkit::PlayerPanel   MediaPlayer1{*this, {"MediaPlayer1", 300,  180, 3465, 3255}, {resources::play, resources::pause, resources::stop}};
    toolkit::CommandButton cmdOk       {*this, {"cmdOk",       1575, 3645,  780,  780}, {.caption = "Ok", .icon = resources::done, .isDefault = true, .isCancel = true}};

    // clang-format on
};
