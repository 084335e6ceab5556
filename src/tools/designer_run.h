// The designer on a simulated machine, as the inspection tool uses it: a template loaded, never shown.
#pragma once

#include "designer/frm_designer.h"
#include "tools/program_run.h"

#include <string>

namespace tools {

class DesignerRun {
public:
    explicit DesignerRun(const DriveFolders& drives);

    /// Loads a template by its Windows path; fails with `std::runtime_error` and what the program tells its
    /// user.
    void load(const std::string& templatePath);
    /// Fails as `load` does if the program has put up a message by now.
    void requireSuccess();

    sys::simulated::Machine& machine() { return run_.machine(); }
    frmDesigner& form() { return run_.application().form<frmDesigner>(); }

private:
    ProgramRun run_;
};

} // namespace tools
