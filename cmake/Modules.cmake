# How a target of this project is made. Every compiler flag stands in parzello_flags and nowhere else.

# What calls the operating system stands in twins, ..._linux.cpp and so on; this one is built.
string(TOLOWER ${CMAKE_SYSTEM_NAME} PARZELLO_SYSTEM)

set(CMAKE_AUTOMOC OFF)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTORCC_OPTIONS "--format-version;1") # later ones note when a file was touched
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(parzello_flags INTERFACE)
target_compile_features(parzello_flags INTERFACE cxx_std_20)
target_include_directories(parzello_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(parzello_flags INTERFACE
    # A release is the same to the byte, from whatever folder it is built.
    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fPIC
    # GCC 12 sees an overlap in plain string assignments once they are optimised (its bug 105329).
    $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
target_compile_definitions(parzello_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_FOREACH QT_NO_KEYWORDS
    _GLIBCXX_ASSERTIONS)
# scripts/check-hardening looks for the effect of these in the built program.
target_compile_options(parzello_flags INTERFACE
    -fstack-protector-strong -fstack-clash-protection
    $<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
target_link_options(parzello_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
if(PARZELLO_SANITIZE)
    target_compile_options(parzello_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(parzello_flags INTERFACE -fsanitize=address,undefined)
endif()
if(PARZELLO_FUZZ)
    target_compile_options(parzello_flags INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
    target_link_options(parzello_flags INTERFACE -fsanitize=address,undefined)
endif()

# Qt's headers, compiled once for all that read them: QtCore in data/, Qt Widgets in controls/. Plain
# files get the first alone, so that a widget's header is no nearer to them than before.
function(parzello_use_plain_headers name)
    if(name STREQUAL data)
        target_precompile_headers(data PRIVATE <QtCore>)
    else()
        target_precompile_headers(${name} REUSE_FROM data)
    endif()
endfunction()
function(parzello_use_widget_headers name)
    if(name STREQUAL controls)
        target_precompile_headers(controls PRIVATE <QtWidgets>)
    else()
        target_precompile_headers(${name} REUSE_FROM controls)
    endif()
endfunction()

# A library of plain files: structs and free routines that know QtCore and cannot show a window.
function(parzello_plain_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;KNOWS" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC parzello_flags Qt6::Core ${arg_KNOWS})
    parzello_use_plain_headers(${name})
endfunction()

# Qt tells every test its own folders. None asks, and the telling would make each test folder a
# compilation of its own, without the headers compiled before.
set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)

# One test program from the given test files; each file is a test of its own for ctest, in a process of
# its own. The runner says what the program may use: plain_test_runner QtCore alone (no window system
# needed), form_test_runner Qt Widgets.
function(parzello_tests program)
    cmake_parse_arguments(arg "" "RUNNER" "LIBRARIES;FILES" ${ARGN})
    list(TRANSFORM arg_FILES APPEND .cpp OUTPUT_VARIABLE sources)
    add_executable(${program} ${sources})
    set_target_properties(${program} PROPERTIES AUTOMOC ON)
    target_link_libraries(${program} PRIVATE test_support ${arg_LIBRARIES} ${arg_RUNNER})
    target_precompile_headers(${program} REUSE_FROM ${arg_RUNNER})
    foreach(file ${arg_FILES})
        # Only a test that reads fixtures is told their place: the others compile alike in every
        # checkout, so that a compiler cache serves them all.
        file(READ ${CMAKE_CURRENT_SOURCE_DIR}/${file}.cpp source)
        if(source MATCHES "PARZELLO_FIXTURES")
            set_property(SOURCE ${file}.cpp APPEND PROPERTY
                COMPILE_DEFINITIONS PARZELLO_FIXTURES="${PROJECT_SOURCE_DIR}/tests/fixtures")
        endif()
        parzello_add_test(${file} ${program} ${file})
    endforeach()
endfunction()

# The tests of one file as a test of ctest; settings are those of the environment, in place of or
# besides the usual ones (LC_ALL=tr_TR.UTF-8).
function(parzello_add_test name program file)
    add_test(NAME ${name} COMMAND ${program} ${file})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;${ARGN}")
endfunction()

# Everything that shows a window. One library: forms reach each other's routines through
# app/program.h. Each folder adds its own.
add_library(forms STATIC)
function(parzello_forms)
    target_sources(forms PRIVATE ${ARGN})
endfunction()
