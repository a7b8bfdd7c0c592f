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

# A library of plain files: structs and free routines that know QtCore and cannot show a window.
function(parzello_plain_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;KNOWS" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC parzello_flags Qt6::Core ${arg_KNOWS})
endfunction()

# One test program for one test file (Qt Test, no window system needed).
function(parzello_test name)
    cmake_parse_arguments(arg "" "" "LIBRARIES" ${ARGN})
    add_executable(${name} ${name}.cpp)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE test_support ${arg_LIBRARIES} Qt6::Test)
    # Only a test that reads fixtures is told their place: the others compile alike in every
    # checkout, so that a compiler cache serves them all.
    file(READ ${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp source)
    if(source MATCHES "PARZELLO_FIXTURES")
        target_compile_definitions(${name} PRIVATE
            PARZELLO_FIXTURES="${PROJECT_SOURCE_DIR}/tests/fixtures")
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC" TIMEOUT 300)
endfunction()

# Everything that shows a window. One library: forms reach each other's routines through
# app/program.h. Each folder adds its own.
add_library(forms STATIC)
function(parzello_forms)
    target_sources(forms PRIVATE ${ARGN})
endfunction()
