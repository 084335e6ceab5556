// A rule that no input of a fuzz target may break.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void require(bool kept, const char* rule) {
    if (!kept) {
        std::fprintf(stderr, "broken rule: %s\n", rule);
        std::abort();
    }
}
