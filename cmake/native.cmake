# The native build: the inspection tool, and the tests that run on the simulated system.

find_package(GTest REQUIRED)
find_package(nlohmann_json 3 REQUIRED)

add_native_libraries("")
add_native_libraries(_sanitized -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer -g1 -UNDEBUG)
foreach(library program_sanitized simulated_sanitized)
    target_compile_options(${library} PRIVATE -O1)
endforeach()

find_sources(tool_sources src/tools/*.cpp)
add_executable(tessellarium-inspect ${tool_sources})
target_link_libraries(tessellarium-inspect PRIVATE simulated strict nlohmann_json::nlohmann_json)
join_sources(tessellarium-inspect 6)

find_sources(support_sources tests/support/*.cpp)
add_library(test_support STATIC ${support_sources})
compile_tests_quickly(test_support)
# It is the program that is watched for undefined behaviour.
target_compile_options(test_support PRIVATE -fno-sanitize=undefined)
target_include_directories(test_support PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(test_support PUBLIC simulated_sanitized GTest::gmock PRIVATE strict)

# One executable per layer of tests, run as a whole: starting it for each of its tests would take longer than they do.
function(add_native_tests layer)
    find_sources(sources "tests/${layer}/*.cpp")
    # What can only run on the real system.
    list(FILTER sources EXCLUDE REGEX "/tests/${layer}/win32/")
    add_executable(${layer}_tests ${sources})
    compile_tests_quickly(${layer}_tests)
    target_compile_options(${layer}_tests PRIVATE -fno-sanitize=undefined)
    target_link_libraries(${layer}_tests PRIVATE strict test_support GTest::gmock_main)
    add_test(NAME ${layer} COMMAND ${layer}_tests --gtest_brief=1)
    set_tests_properties(${layer} PROPERTIES LABELS ${layer} TIMEOUT 300)
endfunction()

add_native_tests(unit)
add_native_tests(program)
add_native_tests(contract)
set_tests_properties(program PROPERTIES COST 60) # so that it isn't the last to end

foreach(module inspect inspect_show inspect_package)
    add_test(NAME tools.${module}
        COMMAND "${PROJECT_SOURCE_DIR}/tests/tools/${module}_test.py" "$<TARGET_FILE:tessellarium-inspect>")
    set_tests_properties(tools.${module} PROPERTIES LABELS tools TIMEOUT 120)
endforeach()
