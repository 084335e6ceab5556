#include "toolkit/command_button.h"

namespace toolkit {

void CommandButton::userClicked() {
    if (visible() && enabled()) {
        click.raise();
    }
}

} // namespace toolkit
