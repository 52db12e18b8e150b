# What every CMakeLists.txt of this project is written with: voxi_add_library and voxi_add_test,
# and the settings that all targets of ours share (and no target of others gets).

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
include(GenerateExportHeader)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN:$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

find_program(VOXI_CCACHE ccache)
if(VOXI_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Without this sloppiness ccache does not cache sources that use a precompiled header.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${VOXI_CCACHE}")
endif()

set(VOXI_EXPORT_DIR "${PROJECT_BINARY_DIR}/export")
set(VOXI_PRECOMPILED
    <QtWidgets>
    <algorithm>
    <array>
    <functional>
    <map>
    <memory>
    <optional>
    <string>
    <unordered_map>
    <utility>
    <vector>)

if(VOXI_SANITIZE STREQUAL "address")
    # The vptr check needs type information across libraries, which hidden visibility removes.
    set(VOXI_SANITIZE_FLAGS -fsanitize=address,undefined -fno-sanitize=vptr
                            -fno-sanitize-recover=all -fno-omit-frame-pointer)
elseif(VOXI_SANITIZE STREQUAL "thread")
    set(VOXI_SANITIZE_FLAGS -fsanitize=thread -fno-omit-frame-pointer)
elseif(VOXI_SANITIZE)
    message(FATAL_ERROR "VOXI_SANITIZE is '${VOXI_SANITIZE}'; it can be address, thread or empty")
endif()

# Warnings, sanitizers and house definitions for one target of ours.
function(voxi_house_settings target)
    target_compile_options(
        ${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Woverloaded-virtual
                          -Wnon-virtual-dtor $<$<BOOL:${VOXI_WERROR}>:-Werror>)
    # At -O3 GCC 12 sees overlaps where strings are added.
    target_compile_options(
        ${target} PRIVATE $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
    if(VOXI_SANITIZE_FLAGS)
        target_compile_options(${target} PRIVATE ${VOXI_SANITIZE_FLAGS})
        target_link_options(${target} PRIVATE ${VOXI_SANITIZE_FLAGS})
    endif()
endfunction()

# What a target that uses Qt needs beyond that. -fPIC for programs too: one precompiled header
# serves libraries and programs only when both are compiled for the same kind of code.
function(voxi_qt_settings target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
                                                 QT_NO_CAST_TO_ASCII)
    target_compile_options(${target} PRIVATE -fPIC)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -fpch-preprocess) # for ccache
    endif()
endfunction()

# voxi_add_rooms(<folder>...): adds the folders in the given order.
function(voxi_add_rooms)
    foreach(room IN LISTS ARGN)
        if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${room}/CMakeLists.txt")
            add_subdirectory(${room})
        endif()
    endforeach()
endfunction()

# voxi_add_kinds(<folder> <kind>...): adds the header and the source of each kind to
# VOXI_KIND_HEADERS and VOXI_KIND_SOURCES. Where they lie is said by VOXI_KIND_HEADER and
# VOXI_KIND_SOURCE, in which FOLDER and KIND stand for both words.
function(voxi_add_kinds folder)
    foreach(kind IN LISTS ARGN)
        foreach(file HEADER SOURCE)
            string(REPLACE FOLDER "${folder}" path "${VOXI_KIND_${file}}")
            string(REPLACE KIND "${kind}" path "${path}")
            list(APPEND VOXI_KIND_${file}S "${path}")
        endforeach()
    endforeach()
    set(VOXI_KIND_HEADERS ${VOXI_KIND_HEADERS} PARENT_SCOPE)
    set(VOXI_KIND_SOURCES ${VOXI_KIND_SOURCES} PARENT_SCOPE)
endfunction()

# All that the libraries export bears this version, one for all of them: what is compiled into two of
# them must still be one and the same. While the major version is 0, each minor one may be different.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(VOXI_SYMBOL_VERSION "VOXI_0.${PROJECT_VERSION_MINOR}")
else()
    set(VOXI_SYMBOL_VERSION "VOXI_${PROJECT_VERSION_MAJOR}")
endif()
set(VOXI_SYMBOL_MAP "${PROJECT_BINARY_DIR}/symbols.map")
file(CONFIGURE OUTPUT "${VOXI_SYMBOL_MAP}" CONTENT "@VOXI_SYMBOL_VERSION@ {\n    *;\n};\n" @ONLY)

# voxi_add_library(<name> HEADERS ... SOURCES ... [PUBLIC_LIBS ...] [PRIVATE_LIBS ...]
#                  [BASE_DIR <dir>] [COMPONENT qt|web])
# A shared library <name>, alias voxi::<name>, with its export header and its install rules.
# COMPONENT says which part of the package it belongs to: none is what applications link, qt what
# programs need to show them, web what is loaded at run time only and linked by nobody.
# Public headers lie under BASE_DIR (default: include). A library that links a Qt6:: target is
# moc'ed and gets the house definitions for Qt; with Qt6::Widgets its <QtWidgets> is precompiled.
function(voxi_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "BASE_DIR;COMPONENT"
                          "HEADERS;SOURCES;PUBLIC_LIBS;PRIVATE_LIBS")
    voxi_require_all_parsed(voxi_add_library)
    if(NOT arg_BASE_DIR)
        set(arg_BASE_DIR include)
    endif()

    add_library(${name} SHARED ${arg_SOURCES})
    add_library(voxi::${name} ALIAS ${name})
    # A library calls its own functions as they are: thousands of names need not be looked up when
    # it is loaded.
    target_link_options(${name} PRIVATE -Wl,-Bsymbolic-functions)
    if(NOT VOXI_SANITIZE)
        # Libraries are loaded at run time too: what is missing must not wait until then.
        target_link_options(${name} PRIVATE -Wl,--no-undefined
                                            "-Wl,--version-script,${VOXI_SYMBOL_MAP}")
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${VOXI_SYMBOL_MAP}")
    endif()
    set(export_header "${VOXI_EXPORT_DIR}/${name}/${name}_export.h")
    generate_export_header(${name} EXPORT_FILE_NAME "${export_header}")
    target_sources(
        ${name}
        PUBLIC FILE_SET HEADERS
               BASE_DIRS "${arg_BASE_DIR}" "${VOXI_EXPORT_DIR}"
               FILES ${arg_HEADERS} "${export_header}")
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC_LIBS} PRIVATE ${arg_PRIVATE_LIBS})
    # The language is told for a library that has only headers as yet.
    set_target_properties(
        ${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                           LINKER_LANGUAGE CXX)
    voxi_house_settings(${name})
    if("${arg_PUBLIC_LIBS};${arg_PRIVATE_LIBS}" MATCHES "Qt6::")
        voxi_qt_settings(${name})
    endif()
    if("${arg_PUBLIC_LIBS};${arg_PRIVATE_LIBS}" MATCHES "Qt6::Widgets")
        target_precompile_headers(${name} PRIVATE ${VOXI_PRECOMPILED})
    endif()

    voxi_install_library(${name} "${arg_COMPONENT}")
    if(NOT TARGET libraries)
        add_custom_target(libraries)
    endif()
    add_dependencies(libraries ${name})
endfunction()

# voxi_install_library(<name> <component>): what voxi_add_library says of COMPONENT. Each component
# installs libraries apart from what programs are compiled with, as packages of systems do.
function(voxi_install_library name component)
    if(component STREQUAL "web")
        install(TARGETS ${name} LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
                                        COMPONENT web NAMELINK_SKIP)
        return()
    endif()
    set(libraries libraries)
    set(development development)
    set(export voxi)
    if(component)
        set(libraries ${component})
        set(development ${component}_development)
        set(export voxi_${component})
    endif()
    install(
        TARGETS ${name}
        EXPORT ${export}Targets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${libraries}
                NAMELINK_COMPONENT ${development}
        FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT ${development})
endfunction()

# voxi_add_test(<name> SOURCES ... LIBS ... [QT] [X11 [SCALED <filter>] [EMBEDDED_GL <filter>]]
#               [A11Y] [WAYLAND] [TIMEOUT <seconds>] [NO_GLIB <filter>])
# One GoogleTest program. Each of its tests is a ctest test of label unit; with X11 the program as
# a whole is one ctest test of label x11, on a virtual display with a window manager of its own.
# SCALED: those of its tests that match run once more with two pixels for each unit.
# EMBEDDED_GL: and these with OpenGL ES.
# A11Y: as X11, with label a11y, and with a session bus on which assistive programs find it.
# WAYLAND: the same under a compositor of its own, with label wayland.
# QT: runs inside the test support's QApplication, where an unexpected Qt warning fails the test.
# NO_GLIB: those of its tests that match run once more, together, in Qt's own event loop.
function(voxi_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT;X11;A11Y;WAYLAND" "TIMEOUT;SCALED;EMBEDDED_GL;NO_GLIB"
                          "SOURCES;LIBS")
    voxi_require_all_parsed(voxi_add_test)
    set(label)
    set(display "${PROJECT_SOURCE_DIR}/tools/xvfb-run.sh")
    set(environment QT_QPA_PLATFORM=xcb)
    if(arg_X11)
        set(label x11)
    elseif(arg_A11Y)
        set(label a11y)
        list(APPEND display --session-bus)
        list(APPEND environment QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1)
    elseif(arg_WAYLAND)
        set(label wayland)
        set(display "${PROJECT_SOURCE_DIR}/tools/wayland-run.sh")
        set(environment QT_QPA_PLATFORM=wayland)
    endif()
    if((arg_QT OR label) AND NOT VOXI_WITH_QT)
        return()
    endif()

    add_executable(${name} ${arg_SOURCES})
    voxi_house_settings(${name})
    if(arg_QT OR label)
        voxi_qt_settings(${name})
        target_link_libraries(${name} PRIVATE ${arg_LIBS} test_support_qt)
        target_precompile_headers(${name} REUSE_FROM test_support_qt)
    else()
        target_link_libraries(${name} PRIVATE ${arg_LIBS} test_support)
    endif()

    if(label)
        if(NOT arg_TIMEOUT)
            set(arg_TIMEOUT 180)
        endif()
        add_test(NAME ${name} COMMAND ${display} $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT ${arg_TIMEOUT}
                                                ENVIRONMENT "${environment}")
        set(SCALED_environment QT_SCALE_FACTOR=2)
        set(EMBEDDED_GL_environment VOXI_TEST_EMBEDDED_GL=1)
        foreach(variant SCALED EMBEDDED_GL)
            if(arg_${variant})
                string(TOLOWER "${name}_${variant}" again)
                add_test(NAME ${again} COMMAND ${display} $<TARGET_FILE:${name}>
                                               "--gtest_filter=${arg_${variant}}")
                set_tests_properties(
                    ${again} PROPERTIES LABELS ${label} TIMEOUT ${arg_TIMEOUT}
                                        ENVIRONMENT "${environment};${${variant}_environment}")
            endif()
        endforeach()
    else()
        if(NOT arg_TIMEOUT)
            set(arg_TIMEOUT 60)
        endif()
        gtest_discover_tests(
            ${name}
            DISCOVERY_MODE PRE_TEST
            DISCOVERY_TIMEOUT 60
            PROPERTIES LABELS unit TIMEOUT ${arg_TIMEOUT} ENVIRONMENT QT_QPA_PLATFORM=offscreen)
    endif()
    if(arg_NO_GLIB)
        add_test(NAME ${name}_no_glib COMMAND ${name} "--gtest_filter=${arg_NO_GLIB}")
        set_tests_properties(
            ${name}_no_glib PROPERTIES LABELS unit TIMEOUT 180
                                       ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_NO_GLIB=1")
    endif()
endfunction()

# A misspelt keyword would otherwise drop files from a target in silence.
macro(voxi_require_all_parsed who)
    if(DEFINED arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${who}(${name}): unknown arguments: ${arg_UNPARSED_ARGUMENTS}")
    endif()
endmacro()

# Installs the package description: find_package(voxi) gives what applications link as voxi::<name>,
# its component qt what hosts them.
function(voxi_install_package)
    set(destination "${CMAKE_INSTALL_LIBDIR}/cmake/voxi")
    configure_package_config_file(
        "${PROJECT_SOURCE_DIR}/cmake/voxiConfig.cmake.in" "${PROJECT_BINARY_DIR}/voxiConfig.cmake"
        INSTALL_DESTINATION "${destination}")
    # As with the symbols: before 1.0 each minor version is one of its own.
    set(compatibility SameMajorVersion)
    if(PROJECT_VERSION_MAJOR EQUAL 0)
        set(compatibility SameMinorVersion)
    endif()
    write_basic_package_version_file("${PROJECT_BINARY_DIR}/voxiConfigVersion.cmake"
                                     COMPATIBILITY ${compatibility})
    install(
        FILES "${PROJECT_BINARY_DIR}/voxiConfig.cmake"
              "${PROJECT_BINARY_DIR}/voxiConfigVersion.cmake"
        DESTINATION "${destination}"
        COMPONENT development)
    install(EXPORT voxiTargets NAMESPACE voxi:: DESTINATION "${destination}" COMPONENT development)
    install(EXPORT voxi_qtTargets NAMESPACE voxi:: DESTINATION "${destination}"
            COMPONENT qt_development)
endfunction()
