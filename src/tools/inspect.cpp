// tessellarium-inspect: runs the program's own routines on the simulated system and prints what they do.
#include "tools/arguments.h"
#include "tools/commands.h"

#include "system/failure.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr const char* usage =
    "tessellarium-inspect: checks settings and templates without a screen; prints JSON, one object a line\n"
    "  path TEXT\n"
    "      the parts of a file specification\n"
    "  playlist [--drive L=DIR]... KEY=VALUE...\n"
    "      what a show with these settings would present\n"
    "  show [--drive L=DIR]... --steps N --screen WxH [--twips T] [--random a,b,...] [--frames DIR] KEY=VALUE...\n"
    "      what happens in N ticks of the show's clock; --frames writes the screen after each as PNG\n"
    "Files that the program reads are Windows paths on the drives given; KEY=VALUE are settings as they\n"
    "are stored, for example AllImages=1 ImagePath='C:\\Pictures'.\n";

int run(const std::vector<std::string>& words) {
    if (words.empty()) {
        throw tools::WrongCall("no command given; --help lists them");
    }
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    if (words[0] == "--help") {
        std::fputs(usage, stdout);
        return 0;
    }
    if (words[0] == "path") {
        return tools::inspectPath(rest);
    }
    if (words[0] == "playlist") {
        return tools::inspectPlaylist(rest);
    }
    if (words[0] == "show") {
        return tools::inspectShow(rest);
    }
    throw tools::WrongCall("unknown command " + words[0] + "; --help lists them");
}

int complain(const std::string& line, int exitCode) {
    std::fprintf(stderr, "tessellarium-inspect: %s\n", line.c_str());
    return exitCode;
}

} // namespace

int main(int count, char** arguments) {
    try {
        return run({arguments + 1, arguments + count});
    } catch (const tools::WrongCall& wrong) {
        return complain(wrong.what(), 2);
    } catch (const Failure& failure) {
        return complain(failure.description(), 1);
    } catch (const std::exception& error) {
        return complain(error.what(), 1);
    }
}
