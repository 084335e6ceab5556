#include "startup/marrowfieldry.h"
#include "system/simulated/code_page.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/designer_run.h"
#include "tools/host_files.h"
#include "tools/json.h"

namespace tools {

int inspectTemplate(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--drive", "--write"});
    if (arguments.plain().size() != 1) {
        throw WrongCall("template takes one path");
    }
    DesignerRun run(drivesFrom(arguments.all("--drive")));
    run.load(sys::simulated::toCodePage(arguments.plain().front()));

    const frmDesigner& form = run.form();
    printLine({{"mode", form.optAsync.value() ? 3 : form.optSync2.value() ? 2 : 1}});
    for (std::int16_t row = 1; row <= form.ListView1.rowCount(); ++row) {
        const auto column = [&](frmDesigner::Column name) {
            return jsonText(form.ListView1.text(row, name));
        };
        printLine({{"image", column(frmDesigner::imagesColumn)},
                   {"sound", column(frmDesigner::soundsColumn)},
                   {"dissolve", column(frmDesigner::dissolvesColumn)},
                   {"comment", column(frmDesigner::commentsColumn)},
                   {"imagePath", jsonText(form.imagePath(row))},
                   {"soundPath", jsonText(form.soundPath(row))}});
    }
    if (arguments.has("--write")) {
        const std::string target = AddBackslash(run.machine().identity().folder) + "template.txt";
        run.form().WriteTemplate(target);
        store(arguments.one("--write"), run.machine().files().content(target));
    }
    return 0;
}

} // namespace tools
