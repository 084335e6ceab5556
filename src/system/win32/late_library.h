// Procedures of system libraries that are bound at their first use, always from the system's own folder.
#pragma once

#include "system/win32/native.h"

namespace sys::win32 {

/// Keeps libraries that lie beside the program, or in the current folder, from being taken in place of
/// the system's. To be called before anything else can load one.
void trustOnlySystemLibraries();

/// Loads `library` ("winmm.dll") if it isn't loaded yet; it stays to the end of the process. Null when
/// the library or the procedure doesn't exist.
FARPROC lateProcedure(const char* library, const char* procedure);

template <class Function> Function* lateProcedure(const char* library, const char* procedure) {
    // By way of an untyped function, as a direct cast between two function types draws a warning.
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(lateProcedure(library, procedure)));
}

} // namespace sys::win32
