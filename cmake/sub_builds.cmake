# The builds that another compiler makes, in folders beneath this one, always brought up to date.
include(ExternalProject)

find_program(MINGW_COMPILER x86_64-w64-mingw32-g++-posix)
if(MINGW_COMPILER AND EXISTS "${PROJECT_SOURCE_DIR}/src/main_win32.cpp")
    set(windows_folder "${PROJECT_BINARY_DIR}/win32")
    ExternalProject_Add(windows
        SOURCE_DIR "${PROJECT_SOURCE_DIR}"
        BINARY_DIR "${windows_folder}"
        PREFIX "${PROJECT_BINARY_DIR}/sub_builds/windows"
        CMAKE_ARGS "-DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/mingw-w64-x86_64.cmake"
                   -DCMAKE_BUILD_TYPE=Release
        BUILD_COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR> --target screen_saver
        INSTALL_COMMAND "${CMAKE_COMMAND}" -E copy_if_different
                        <BINARY_DIR>/Tessellarium.scr "${PROJECT_BINARY_DIR}/Tessellarium.scr"
        BUILD_ALWAYS ON
        USES_TERMINAL_CONFIGURE ON
        USES_TERMINAL_BUILD ON)
    ExternalProject_Add_Step(windows tests
        COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR>
        DEPENDEES install
        ALWAYS ON
        EXCLUDE_FROM_MAIN ON
        USES_TERMINAL ON)
    ExternalProject_Add_StepTargets(windows tests)
    add_custom_target(windows_tests ALL DEPENDS windows-tests)
else()
    message(STATUS "No x86_64-w64-mingw32-g++-posix: only the native parts are built, not Tessellarium.scr")
endif()
