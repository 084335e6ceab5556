# The Windows build: the product, and the programs that test and measure it on the real system.

add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-static -static-libgcc -static-libstdc++ -Wl,--gc-sections)

add_program_library(program)

# Only libraries that Windows always takes from its own folder may be imported: nothing that lies beside
# the program can stand in for one of them. All others are bound at their first use.
set(CMAKE_CXX_STANDARD_LIBRARIES "")
find_sources(win32_sources src/system/win32/*.cpp)
add_library(win32 STATIC ${win32_sources})
target_link_libraries(win32 PUBLIC program gdi32 user32 advapi32 ole32 uuid strmiids kernel32 PRIVATE strict)
read_headers_once(win32 "${PROJECT_SOURCE_DIR}/src/system/win32/native.h")

# Also of the bare programs that the product is measured against.
function(link_as_product target)
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
    target_link_options(${target} PRIVATE
        -s -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat -Wl,--no-insert-timestamp)
endfunction()

add_executable(screen_saver src/main_win32.cpp resources/tessellarium.rc)
set_target_properties(screen_saver PROPERTIES OUTPUT_NAME Tessellarium SUFFIX .scr)
set_source_files_properties(resources/tessellarium.rc PROPERTIES
    OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/resources/Tessellarium.ico;${PROJECT_SOURCE_DIR}/resources/tessellarium.manifest;${PROJECT_BINARY_DIR}/generated/startup/version.h")
target_link_libraries(screen_saver PRIVATE win32 strict)
link_as_product(screen_saver)
add_custom_command(TARGET screen_saver POST_BUILD
    COMMAND "${CMAKE_COMMAND}" -D "PROGRAM=$<TARGET_FILE:screen_saver>"
            -P "${PROJECT_SOURCE_DIR}/cmake/append_padding.cmake"
    VERBATIM)

# The contract of the toolkit's systems, on the real one. Debian brings GoogleTest for Windows as sources.
find_sources(contract_sources tests/contract/*.cpp)
list(FILTER contract_sources EXCLUDE REGEX "/tests/contract/simulated/")
if(CMAKE_CROSSCOMPILING)
    add_subdirectory(/usr/src/googletest "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest)
endif()
if(TARGET GTest::gmock_main)
    enable_testing()
    add_executable(contract_tests ${contract_sources})
    target_include_directories(contract_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(contract_tests PRIVATE win32 strict GTest::gmock_main)
    compile_tests_quickly(contract_tests)
    add_test(NAME contract COMMAND contract_tests)
endif()

add_subdirectory(tests/endtoend)
add_subdirectory(tests/bench)
