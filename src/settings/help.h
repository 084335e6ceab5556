// The help routine, the same for all dialogs that have it.
#pragma once

#include "startup/product.h"
#include "toolkit/form.h"

#include <string>

/// Opens the help file's contents page for a dialog. A product without one, or a viewer that isn't there, is
/// told in a message box.
void showHelp(toolkit::Form& form, const std::string& helpFile = product::helpFile);
