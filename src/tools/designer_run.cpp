#include "tools/designer_run.h"

#include "startup/path_parser.h"
#include "system/simulated/code_page.h"

#include <stdexcept>

namespace tools {

DesignerRun::DesignerRun(const DriveFolders& drives) : run_({}, {}, drives) { run_.startNothing(); }

void DesignerRun::load(const std::string& templatePath) {
    PathParser parser;
    parser.setFileSpec(templatePath);
    form().TemplateFile = templatePath;
    form().TemplateFolder = parser.Path;
    form().PerformLoad();
    requireSuccess();
}

void DesignerRun::requireSuccess() {
    if (!machine().messageBoxes().empty()) {
        throw std::runtime_error(sys::simulated::fromCodePage(machine().messageBoxes().back().text));
    }
}

} // namespace tools
