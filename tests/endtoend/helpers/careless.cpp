// Loads libraries as no program should: by their bare names, so that those beside it come first.
#include <windows.h>

int main(int count, char** names) {
    for (int i = 1; i < count; ++i) {
        LoadLibraryA(names[i]);
    }
    return 0;
}
