// tessellarium-inspect: runs the program's own routines on the simulated system and prints what they do.
#include "tools/arguments.h"
#include "tools/commands.h"

#include "system/failure.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char* usage =
    "tessellarium-inspect: checks settings, templates and packages without a screen; prints JSON, one object "
    "a line\n"
    "  path TEXT\n"
    "      the parts of a file specification\n"
    "  playlist [--drive L=DIR]... KEY=VALUE...\n"
    "      what a show with these settings would present\n"
    "  show [--drive L=DIR]... --steps N --screen WxH [--twips T] [--random a,b,...] [--frames DIR] "
    "KEY=VALUE...\n"
    "      what happens in N ticks of the show's clock; --frames writes the screen after each as PNG\n"
    "  template [--drive L=DIR]... PATH [--write FILE]\n"
    "      what the template designer would hold of a template; --write stores what it would save of that\n"
    "  write [--drive L=DIR]... --exe FILE --template PATH --out FILE\n"
    "      packages a template as a screen saver of its own, with the program FILE\n"
    "  package FILE [--extract DIR]\n"
    "      what a packaged screen saver holds; --extract writes its pictures and sounds as files\n"
    "Files that the program reads are Windows paths on the drives given; KEY=VALUE are settings as they\n"
    "are stored, for example AllImages=1 ImagePath='C:\\Pictures'.\n";

struct Command {
    std::string_view name;
    int (*run)(const std::vector<std::string>& words);
};

constexpr std::array commands = {
    Command{"path", tools::inspectPath},   Command{"playlist", tools::inspectPlaylist},
    Command{"show", tools::inspectShow},   Command{"template", tools::inspectTemplate},
    Command{"write", tools::inspectWrite}, Command{"package", tools::inspectPackage},
};

/// Where the command stands: behind any options, each of which has a value.
std::size_t commandIn(const std::vector<std::string>& words) {
    std::size_t index = 0;
    while (index < words.size() && words[index].starts_with("--")) {
        index += 2;
    }
    return index;
}

int run(std::vector<std::string> words) {
    if (words == std::vector<std::string>{"--help"}) {
        std::fputs(usage, stdout);
        return 0;
    }
    const std::size_t index = commandIn(words);
    if (index >= words.size()) {
        throw tools::WrongCall("no command given; --help lists them");
    }
    const std::string command = words[index];
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(index));
    for (const Command& each : commands) {
        if (each.name == command) {
            return each.run(words);
        }
    }
    throw tools::WrongCall("unknown command " + command + "; --help lists them");
}

/// One line, whatever stands in the text.
int complain(std::string text, int exitCode) {
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < ' '; }, '?');
    std::fprintf(stderr, "tessellarium-inspect: %s\n", text.c_str());
    return exitCode;
}

} // namespace

int main(int count, char** arguments) {
    try {
        const int exitCode = run({arguments + 1, arguments + count});
        if (!std::cout.flush() || std::fflush(stdout) != 0) {
            return complain("the output can't be written", 1);
        }
        return exitCode;
    } catch (const tools::WrongCall& wrong) {
        return complain(wrong.what(), 2);
    } catch (const Failure& failure) {
        return complain(failure.description(), 1);
    } catch (const std::bad_alloc&) {
        return complain(describe(FailureCode::outOfMemory), 1);
    } catch (const std::exception& error) {
        return complain(error.what(), 1);
    }
}
