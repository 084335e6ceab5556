// The reading of a packaged show from the program's own file.
#include "show/main_form.h"
#include "startup/shared_state.h"

std::int16_t MainForm::ReadSCR() { return False; }

std::int16_t MainForm::LoadImbeddedImage(const std::int16_t& /*index*/) { return False; }

void MainForm::LoadImbeddedSound(const std::int16_t& /*index*/) { ExtractedSound.clear(); }
