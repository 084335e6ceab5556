# The builds that another compiler makes, in folders beneath this one, always brought up to date, and the
# tests of what they make.
include(ExternalProject)

# add_sub_build(NAME FOLDER ARGUMENTS OPTION...): this tree built in FOLDER with more arguments for CMake; the
# options are those of ExternalProject_Add.
function(add_sub_build name folder arguments)
    ExternalProject_Add(${name}
        SOURCE_DIR "${PROJECT_SOURCE_DIR}"
        BINARY_DIR "${PROJECT_BINARY_DIR}/${folder}"
        PREFIX "${PROJECT_BINARY_DIR}/sub_builds/${name}"
        CMAKE_ARGS ${arguments}
        BUILD_ALWAYS ON
        USES_TERMINAL_CONFIGURE ON
        USES_TERMINAL_BUILD ON
        ${ARGN})
endfunction()

find_program(MINGW_COMPILER x86_64-w64-mingw32-g++-posix)
if(MINGW_COMPILER)
    # The product first, which is all that plain `make` needs; then what tests and measures it.
    add_sub_build(windows win32
        "-DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/mingw-w64-x86_64.cmake;-DCMAKE_BUILD_TYPE=Release"
        BUILD_COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR> --target screen_saver
        INSTALL_COMMAND "${CMAKE_COMMAND}" -E copy_if_different
                        <BINARY_DIR>/Tessellarium.scr "${PROJECT_BINARY_DIR}/Tessellarium.scr"
        BUILD_BYPRODUCTS "${PROJECT_BINARY_DIR}/Tessellarium.scr")
    ExternalProject_Add_Step(windows tests
        COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR>
        DEPENDEES install
        ALWAYS ON
        EXCLUDE_FROM_MAIN ON
        USES_TERMINAL ON)
    ExternalProject_Add_StepTargets(windows tests)
    add_custom_target(windows_tests ALL DEPENDS windows-tests)

    add_test(NAME product.file
        COMMAND "${PROJECT_SOURCE_DIR}/tests/product/product_test.py" "${PROJECT_BINARY_DIR}/Tessellarium.scr")
    add_test(NAME product.package
        COMMAND "${PROJECT_SOURCE_DIR}/tests/product/package_test.py" "${PROJECT_BINARY_DIR}/Tessellarium.scr"
                "$<TARGET_FILE:tessellarium-inspect>")
    add_test(NAME product.release
        COMMAND "${PROJECT_SOURCE_DIR}/tests/product/release_test.py" "${PROJECT_BINARY_DIR}")
    set_tests_properties(product.file product.package product.release PROPERTIES LABELS product TIMEOUT 300)

    add_test(NAME contract.under_wine
        COMMAND "${PROJECT_SOURCE_DIR}/tools/with-wine" --template "${PROJECT_BINARY_DIR}/wine_template"
                "${PROJECT_SOURCE_DIR}/tests/contract/win32/run" "${PROJECT_BINARY_DIR}/win32/contract_tests.exe")
    set_tests_properties(contract.under_wine PROPERTIES LABELS "contract;wine" COST 50 TIMEOUT 300)

    # Each file of them has a machine of its own. They mostly wait, and take longest: they begin first.
    file(GLOB endtoend_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/endtoend/test_*.py")
    foreach(test IN LISTS endtoend_tests)
        cmake_path(GET test STEM module)
        string(REPLACE "test_" "endtoend." name ${module})
        add_test(NAME ${name}
            COMMAND "${PROJECT_SOURCE_DIR}/tests/endtoend/run" --product "${PROJECT_BINARY_DIR}/Tessellarium.scr"
                    --template "${PROJECT_BINARY_DIR}/wine_template"
                    --failures "${PROJECT_BINARY_DIR}/endtoend/${module}" ${module}.)
        set_tests_properties(${name} PROPERTIES LABELS "endtoend;wine" COST 100 TIMEOUT 600)
    endforeach()
    # A sound that a busy machine doesn't bring in time is torn: there is room for one test beside this.
    set_tests_properties(endtoend.sound PROPERTIES PROCESSORS 3 COST 110)
else()
    message(STATUS "No x86_64-w64-mingw32-g++-posix: only the native parts are built, not Tessellarium.scr")
endif()

# What a user is given.
add_custom_target(product DEPENDS tessellarium-inspect)
if(TARGET windows)
    add_dependencies(product windows)
endif()

find_program(FUZZ_COMPILER clang++)
file(GLOB fuzz_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/fuzz/*.cpp")
if(FUZZ_COMPILER AND fuzz_sources)
    add_sub_build(fuzz fuzz
        "-DCMAKE_CXX_COMPILER=${FUZZ_COMPILER};-DCMAKE_BUILD_TYPE=Release;-DTESSELLARIUM_FUZZ=ON"
        INSTALL_COMMAND "")
    foreach(source IN LISTS fuzz_sources)
        cmake_path(GET source STEM name)
        add_test(NAME fuzz.${name} COMMAND "${PROJECT_SOURCE_DIR}/tools/fuzz" "${PROJECT_BINARY_DIR}" ${name} 10)
        set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz TIMEOUT 300)
    endforeach()
elseif(fuzz_sources)
    message(STATUS "No clang++: the fuzz targets are not built")
endif()
