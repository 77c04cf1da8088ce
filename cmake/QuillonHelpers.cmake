# Helper functions that give every target of the project the same language standard,
# warnings and sanitizers.
include_guard(GLOBAL)

# qln_apply_standard(<target>)
#   C++20, the project's warning set (errors with QLN_WERROR), and the sanitizers of
#   QLN_SANITIZE. Used by every qln_add_* function below.
function(qln_apply_standard target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                                                 -Wnon-virtual-dtor -Wcast-align
                                                 -Woverloaded-virtual)
        # GCC 12 reports -Wrestrict falsely for string concatenations at -O3 (fixed in 13).
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            target_compile_options(${target} PRIVATE -Wno-restrict)
        endif()
        if(QLN_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
        if(QLN_SANITIZE)
            string(REPLACE ";" "," _san "${QLN_SANITIZE}")
            target_compile_options(${target} PRIVATE -fsanitize=${_san} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
            target_link_options(${target} PRIVATE -fsanitize=${_san})
        endif()
        if(QLN_FUZZ)
            target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined
                                                     -fno-omit-frame-pointer)
            target_link_options(${target} PRIVATE -fsanitize=address,undefined)
        endif()
    elseif(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${QLN_WERROR}>:/WX>)
    endif()
endfunction()

# qln_add_library(<name>
#     EXPORT_MACRO_DEFINE <define>   defined while building, so the export macro exports
#     INSTALL_SUBDIR <dir>           headers install to include/<dir>
#     DIRS <folder>...               module folders, each with include/ and source/
#     PUBLIC_DEPS <target>... PRIVATE_DEPS <target>... [NO_INSTALL])
#   A shared library whose symbols are hidden unless marked with its export macro.
function(qln_add_library name)
    cmake_parse_arguments(ARG "NO_INSTALL" "EXPORT_MACRO_DEFINE;INSTALL_SUBDIR"
                          "DIRS;PUBLIC_DEPS;PRIVATE_DEPS" ${ARGN})
    set(_sources "")
    set(_headers "")
    foreach(_dir IN LISTS ARG_DIRS)
        file(GLOB _s CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${_dir}/source/*.cpp")
        file(GLOB _h CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${_dir}/include/*.h")
        list(APPEND _sources ${_s})
        list(APPEND _headers ${_h})
    endforeach()
    add_library(${name} SHARED ${_sources} ${_headers})
    add_library(Quillon::${name} ALIAS ${name})
    qln_apply_standard(${name})
    target_compile_definitions(${name} PRIVATE ${ARG_EXPORT_MACRO_DEFINE})
    foreach(_dir IN LISTS ARG_DIRS)
        target_include_directories(${name} PUBLIC
            $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/${_dir}/include>)
    endforeach()
    target_include_directories(${name} PUBLIC
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${ARG_INSTALL_SUBDIR}>)
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
    set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR})
    if(NOT ARG_NO_INSTALL)
        install(TARGETS ${name} EXPORT QuillonTargets
                LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
                RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
        install(FILES ${_headers}
                DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${ARG_INSTALL_SUBDIR})
    endif()
endfunction()

# qln_add_test(<name> SOURCES <file>... DEPS <target>... [LABELS <label>])
#   A GoogleTest program whose tests are registered with CTest one by one.
function(qln_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    qln_apply_standard(${name})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gmock GTest::gtest_main)
    # One label per test (the module): list values do not survive test discovery.
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
                         PROPERTIES ENVIRONMENT "QLN_TEST_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
                                    LABELS "${ARG_LABELS}")
endfunction()

# qln_add_benchmark(<name> SOURCES <file>... DEPS <target>...)
#   A Google Benchmark program (built with QLN_BUILD_BENCHMARKS, run by hand).
function(qln_add_benchmark name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    qln_apply_standard(${name})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} benchmark::benchmark)
endfunction()

# qln_add_fuzzer(<name> SOURCES <file>... DEPS <target>... CORPUS <dir>)
#   With QLN_FUZZ a libFuzzer program; otherwise the same entry point linked with a
#   driver that replays every file of the corpus. Either way a CTest test replays the
#   seed corpus, so the normal test run exercises it.
function(qln_add_fuzzer name)
    cmake_parse_arguments(ARG "" "CORPUS" "SOURCES;DEPS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    qln_apply_standard(${name})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS})
    if(QLN_FUZZ)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
        add_test(NAME ${name}.corpus COMMAND ${name} -runs=0 ${ARG_CORPUS})
    else()
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/ReplayMain.cpp)
        add_test(NAME ${name}.corpus COMMAND ${name} ${ARG_CORPUS})
    endif()
    set_tests_properties(${name}.corpus PROPERTIES LABELS "fuzz")
endfunction()
