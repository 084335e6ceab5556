#include "startup/shared_state.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/json.h"
#include "tools/program_run.h"

namespace tools {

namespace {

std::string entry(const ItemTexts& texts, std::int16_t item) { return jsonText(itemText(texts, item)); }

} // namespace

int inspectPlaylist(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--drive"});
    ProgramRun run({}, {}, drivesFrom(arguments.all("--drive")));
    run.takeSettings(arguments.plain());
    run.startShow();

    const toolkit::ListBox& names = run.form().lstImageNames;
    printLine({{"SoundMode", shared.SoundMode},
               {"SoundLast", shared.SoundLast},
               {"ImagePath", jsonText(shared.ImagePath)},
               {"count", names.listCount()}});
    for (std::int16_t item = 0; item < names.listCount(); ++item) {
        Json object{{"name", jsonText(names.list(item))},
                    {"comment", entry(shared.ImageComments, item)},
                    {"dissolve", entry(shared.ImageDissolves, item)}};
        if (shared.SoundMode != soundList) {
            object["sound"] = entry(shared.ImageSounds, item);
        }
        printLine(object);
    }
    // Without an item, only a failure leaves a text.
    if (names.listCount() == 0 && !shared.ImageComments[0].empty()) {
        printLine({{"comment", jsonText(shared.ImageComments[0])}});
    }
    if (shared.SoundMode == soundList) {
        Json sounds = Json::array();
        for (std::int16_t index = 0; index <= shared.SoundLast; ++index) {
            sounds.push_back(entry(shared.ImageSounds, index));
        }
        printLine({{"soundlist", sounds}});
    }
    return 0;
}

} // namespace tools
