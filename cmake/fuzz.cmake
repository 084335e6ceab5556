# The fuzz targets: each file of tests/fuzz/ is one, run on the instrumented libraries.

add_native_libraries("" -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer -O1 -g1)

file(GLOB fuzz_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/fuzz/*.cpp")
foreach(source IN LISTS fuzz_sources)
    cmake_path(GET source STEM name)
    add_executable(${name} ${source})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${name} PRIVATE simulated strict)
endforeach()
