# The native build: the inspection tool, and the tests that run on the simulated system.

find_package(PkgConfig REQUIRED)
pkg_check_modules(gd REQUIRED IMPORTED_TARGET gdlib)
find_package(GTest REQUIRED)
find_package(nlohmann_json 3 REQUIRED)
include(GoogleTest)

add_native_libraries("")
add_native_libraries(_sanitized -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer -O1 -g1 -UNDEBUG)

# The tests themselves: compiling them takes longer than running them.
function(compile_quickly)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O0)
endfunction()

find_sources(tool_sources src/tools/*.cpp)
add_executable(tessellarium-inspect ${tool_sources})
target_link_libraries(tessellarium-inspect PRIVATE simulated strict nlohmann_json::nlohmann_json)

find_sources(support_sources tests/support/*.cpp)
compile_quickly(${support_sources})
add_library(test_support STATIC ${support_sources})
target_include_directories(test_support PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(test_support PUBLIC simulated_sanitized GTest::gmock PRIVATE strict)

# One executable per layer of tests, and ctest knows each of its tests.
function(add_native_tests layer)
    find_sources(sources "tests/${layer}/*.cpp")
    # What can only run on the real system.
    list(FILTER sources EXCLUDE REGEX "/tests/${layer}/win32/")
    compile_quickly(${sources})
    add_executable(${layer}_tests ${sources})
    target_link_libraries(${layer}_tests PRIVATE strict test_support GTest::gmock_main)
    gtest_discover_tests(${layer}_tests
        TEST_PREFIX "${layer}." DISCOVERY_MODE PRE_TEST PROPERTIES LABELS ${layer} TIMEOUT 60)
endfunction()

add_native_tests(unit)
add_native_tests(program)
add_native_tests(contract)

add_test(NAME tools.inspect
    COMMAND "${PROJECT_SOURCE_DIR}/tests/tools/inspect_test.py" "$<TARGET_FILE:tessellarium-inspect>")
set_tests_properties(tools.inspect PROPERTIES LABELS tools TIMEOUT 120)
