// The help routine, the same for all dialogs that have it.
#pragma once

#include "toolkit/form.h"

/// Opens the help file's contents page for a dialog. A viewer that isn't there is told in a message box.
void showHelp(toolkit::Form& form);
