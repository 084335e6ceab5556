// The sound list that runs beside the show.
#include "show/main_form.h"

void MainForm::Timer2_Timer() {}
