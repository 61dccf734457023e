# Common compile settings: every Brindle target links brindle_options instead of
# touching global flags.
add_library(brindle_options INTERFACE)
target_compile_features(brindle_options INTERFACE cxx_std_20)
target_compile_options(brindle_options INTERFACE -Wall -Wextra -Wpedantic)
target_compile_definitions(brindle_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(BRINDLE_SANITIZE)
    target_compile_options(brindle_options INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(brindle_options INTERFACE -fsanitize=address,undefined)
endif()

# The locale every test runs under: C.UTF-8, or the one in the environment
# variable BRINDLE_TEST_LOCALE when CMake runs (CI runs the suite a second
# time under a locale whose decimal separator is a comma).
if(DEFINED ENV{BRINDLE_TEST_LOCALE} AND NOT "$ENV{BRINDLE_TEST_LOCALE}" STREQUAL "")
    set(BRINDLE_TEST_LOCALE "$ENV{BRINDLE_TEST_LOCALE}")
else()
    set(BRINDLE_TEST_LOCALE "C.UTF-8")
endif()

# brindle_add_test(NAME SOURCES... LIBS ...): one QtTest executable registered
# with CTest, run on the offscreen platform with a fixed locale.
function(brindle_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE brindle_options Qt6::Test ${ARG_LIBS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
    # The shared precompiled headers fit only the tests built with the same Qt
    # modules: GCC refuses them where another module's macro is defined.
    if("${ARG_LIBS}" STREQUAL "brindle_test_support")
        brindle_precompile(${name} REUSE_FROM brindle_test_support)
    endif()
    # Tests read the staged data files (help, grade scales) as the program does.
    foreach(data brindle_help brindle_data)
        if(TARGET ${data})
            add_dependencies(${name} ${data})
        endif()
    endforeach()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANG=${BRINDLE_TEST_LOCALE};LC_ALL=${BRINDLE_TEST_LOCALE};LANGUAGE=;BRINDLE_INSTALL_DIR=${BRINDLE_STAGED_DATA_DIR};ASAN_OPTIONS=detect_leaks=0"
        TIMEOUT 300)
endfunction()

# brindle_stage_data(TARGET FILES...): copies data files into the staged
# share/brindle folder at build time and installs them there.
function(brindle_stage_data target)
    set(outputs)
    foreach(file ${ARGN})
        get_filename_component(name ${file} NAME)
        set(output ${BRINDLE_STAGED_DATA_DIR}/${name})
        add_custom_command(OUTPUT ${output}
            COMMAND ${CMAKE_COMMAND} -E copy_if_different ${file} ${output}
            DEPENDS ${file} VERBATIM)
        list(APPEND outputs ${output})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${outputs})
    install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_DATADIR}/brindle)
endfunction()

# Precompiled Qt headers: a build from scratch (CI builds twice) spends more
# than half its time reading Qt's headers. ccache cannot cache a compile that
# uses them, so where ccache is found they are off unless asked for.
if(CCACHE_PROGRAM)
    set(brindle_pch_default OFF)
else()
    set(brindle_pch_default ON)
endif()
option(BRINDLE_PRECOMPILED_HEADERS "Precompile the Qt headers" ${brindle_pch_default})

# brindle_precompile(TARGET HEADERS...) or brindle_precompile(TARGET REUSE_FROM OTHER).
function(brindle_precompile target)
    if(NOT BRINDLE_PRECOMPILED_HEADERS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "REUSE_FROM" "HEADERS" ${ARGN})
    if(ARG_REUSE_FROM)
        target_precompile_headers(${target} REUSE_FROM ${ARG_REUSE_FROM})
    else()
        target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
    endif()
endfunction()
