# What every build compiles: the program and a system for it to run on, with the same strict warnings.

add_library(strict INTERFACE)
target_compile_options(strict INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror)

embed_files(embedded resources
    "${PROJECT_SOURCE_DIR}/resources/*.bmp" "${PROJECT_SOURCE_DIR}/resources/buttons/*.ico")

# What nearly every source includes. Most of a compilation is reading headers: here they are read once a target.
function(read_headers_once target)
    if(TESSELLARIUM_JOINED)
        target_precompile_headers(${target} PRIVATE <algorithm> <array> <cstddef> <cstdint> <functional> <map>
            <memory> <optional> <span> <string> <string_view> <utility> <vector> ${ARGN})
    endif()
endfunction()

# Several sources in one compilation: their unnamed namespaces are one as well.
function(join_sources target number)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${TESSELLARIUM_JOINED} UNITY_BUILD_BATCH_SIZE ${number})
endfunction()

# Compiling tests takes longer than running them.
function(compile_tests_quickly target)
    target_compile_options(${target} PRIVATE -O0)
    if(TESSELLARIUM_JOINED AND CMAKE_COMPILER_IS_GNUCXX)
        # A fixture in an unnamed namespace is meant for its own file, also where that is joined with others.
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    join_sources(${target} 6)
endfunction()

# The sources beneath the given folders and patterns of src/; a new file needs no edit here.
function(find_sources result)
    list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARGN})
    set(${result} "${sources}" PARENT_SCOPE)
endfunction()

function(add_program_library name)
    find_sources(sources
        src/startup/*.cpp src/show/*.cpp src/engine/*.cpp src/package/*.cpp
        src/designer/*.cpp src/editor/*.cpp src/settings/*.cpp src/toolkit/*.cpp)
    file(GLOB shared CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/system/*.cpp")
    add_library(${name} STATIC ${sources} ${shared})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC embedded PRIVATE strict)
    join_sources(${name} 12)
endfunction()

# The two libraries on which everything native rests: `program` and `simulated`, their names followed by
# `suffix`, compiled and linked with the given options. They keep the trace texts for tests to see.
function(add_native_libraries suffix)
    add_program_library(program${suffix})
    target_compile_definitions(program${suffix} PUBLIC TESSELLARIUM_TRACE)
    target_compile_options(program${suffix} PUBLIC ${ARGN})
    target_link_options(program${suffix} PUBLIC ${ARGN})

    find_package(PkgConfig REQUIRED)
    pkg_check_modules(gd REQUIRED IMPORTED_TARGET gdlib)
    find_sources(sources src/system/simulated/*.cpp)
    add_library(simulated${suffix} STATIC ${sources})
    target_link_libraries(simulated${suffix} PUBLIC program${suffix} PRIVATE strict PkgConfig::gd)
    read_headers_once(simulated${suffix})
endfunction()
