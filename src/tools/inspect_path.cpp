#include "startup/path_parser.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/json.h"

namespace tools {

int inspectPath(const std::vector<std::string>& words) {
    // A file specification may begin like an option.
    if (words.size() != 1) {
        throw WrongCall("path takes one text");
    }
    PathParser parser;
    parser.setFileSpec(words[0]);
    printLine({{"Path", jsonText(parser.Path)},
               {"FileName", jsonText(parser.FileName)},
               {"Extension", jsonText(parser.Extension)},
               {"UrlPath", jsonText(parser.UrlPath)},
               {"BaseName", jsonText(parser.ParseBaseName())}});
    return 0;
}

} // namespace tools
