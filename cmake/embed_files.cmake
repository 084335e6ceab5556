# embed_files(TARGET NAMESPACE PATTERN...)
#
# Makes the library TARGET, which holds the files that match the patterns as bytes: for `banner.bmp` the
# header "NAMESPACE/embedded.h" declares `std::span<const std::uint8_t> banner` in NAMESPACE.
# The same script, run with `cmake -P`, writes the two sources.

function(embed_files target namespace)
    file(GLOB files CONFIGURE_DEPENDS ${ARGN})
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/generated")
    set(sources "${folder}/${namespace}/embedded.h" "${folder}/${namespace}/embedded.cpp")
    string(REPLACE ";" "|" joined "${files}")
    add_custom_command(
        OUTPUT ${sources}
        COMMAND "${CMAKE_COMMAND}" "-DEMBED_NAMESPACE=${namespace}" "-DEMBED_FILES=${joined}"
                "-DEMBED_FOLDER=${folder}" -P "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
        DEPENDS ${files} "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
        COMMENT "Embedding the pictures of ${namespace}/"
        VERBATIM)
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC "${folder}")
endfunction()

if(CMAKE_SCRIPT_MODE_FILE)
    string(REPLACE "|" ";" files "${EMBED_FILES}")
    set(declarations "")
    set(definitions "")
    foreach(file IN LISTS files)
        cmake_path(GET file STEM name)
        file(READ "${file}" bytes HEX)
        string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
        string(REGEX REPLACE "(................................................................................)"
               "\\1\n    " bytes "${bytes}")
        string(APPEND declarations "extern const std::span<const std::uint8_t> ${name};\n")
        string(APPEND definitions
            "constexpr std::uint8_t ${name}Bytes[] = {\n    ${bytes}};\n"
            "constinit const std::span<const std::uint8_t> ${name}{${name}Bytes};\n\n")
    endforeach()
    file(WRITE "${EMBED_FOLDER}/${EMBED_NAMESPACE}/embedded.h"
        "// Files held as bytes in the program.\n#pragma once\n\n#include <cstdint>\n#include <span>\n\n"
        "namespace ${EMBED_NAMESPACE} {\n${declarations}}\n")
    file(WRITE "${EMBED_FOLDER}/${EMBED_NAMESPACE}/embedded.cpp"
        "#include \"${EMBED_NAMESPACE}/embedded.h\"\n\nnamespace ${EMBED_NAMESPACE} {\n\n${definitions}}\n")
endif()
