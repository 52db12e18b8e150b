# The Debian packages, made by `./dev package`: one for each install component, so that a program
# brings no more with it than it uses, and its developer neither Qt nor Boost.

set(VOXI_DOCUMENTATION "${PROJECT_SOURCE_DIR}/build/docs/html")
install(
    DIRECTORY "${VOXI_DOCUMENTATION}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/voxi-doc"
    COMPONENT documentation
    OPTIONAL)

# Who packs says who he is as Debian's own tools ask it.
set(maintainer "The VOXI developers <voxi@localhost>")
if("$ENV{DEBEMAIL}" MATCHES "<.+>")
    set(maintainer "$ENV{DEBEMAIL}")
elseif(NOT "$ENV{DEBEMAIL}" STREQUAL "")
    string(STRIP "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>" maintainer)
endif()

# What each package has beside its files.
string(TIMESTAMP packed "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${PROJECT_BINARY_DIR}/changelog"
     "voxi (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
     "  * Version ${PROJECT_VERSION}; what is new stands in CHANGELOG.md of the sources.\n\n"
     " -- ${maintainer}  ${packed}\n")
file(ARCHIVE_CREATE OUTPUT "${PROJECT_BINARY_DIR}/changelog.gz"
     PATHS "${PROJECT_BINARY_DIR}/changelog" FORMAT raw COMPRESSION GZip COMPRESSION_LEVEL 9)

# voxi_add_package(<component> <name> <description> [DEPENDS <component>...] [LIBRARIES])
# DEPENDS: other packages of ours, of the same version. LIBRARIES: what others need its libraries
# link is looked up.
macro(voxi_add_package component name description)
    cmake_parse_arguments(arg "LIBRARIES" "" "DEPENDS" ${ARGN})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
    set(CPACK_COMPONENT_${upper}_DEPENDS ${arg_DEPENDS})
    # Not into the folder that somebody installs to without a package.
    install(
        FILES "${PROJECT_SOURCE_DIR}/cmake/copyright" "${PROJECT_BINARY_DIR}/changelog.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}"
        COMPONENT ${component}
        EXCLUDE_FROM_ALL)
    if(arg_LIBRARIES)
        set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION libs)
        set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
        set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/triggers")
    endif()
endmacro()

# The loader's list of libraries is renewed when one comes or goes.
file(WRITE "${PROJECT_BINARY_DIR}/triggers" "activate-noawait ldconfig\n")

set(abi ${PROJECT_VERSION_MAJOR})
set(about "A widget library whose objects are used from any thread, and whose programs know no toolkit.")
voxi_add_package(libraries libvoxi${abi} "${about}" LIBRARIES)
voxi_add_package(qt libvoxi-qt${abi} "${about}\nShows them with Qt 6." DEPENDS libraries LIBRARIES)
voxi_add_package(web libvoxi-qt-web${abi} "${about}\nThe engine of web pages." DEPENDS qt LIBRARIES)
voxi_add_package(development libvoxi-dev "${about}\nWhat its applications are compiled with."
                 DEPENDS libraries)
voxi_add_package(qt_development libvoxi-qt-dev "${about}\nWhat programs are compiled with that show them."
                 DEPENDS development qt)
voxi_add_package(documentation voxi-doc "${about}\nThe reference of all classes.")
set(CPACK_DEBIAN_QT_PACKAGE_SUGGESTS "libvoxi-qt-web${abi}")
set(CPACK_DEBIAN_QT_DEVELOPMENT_PACKAGE_SUGGESTS "qt6-base-dev, libboost-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_QT_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# Who links a library of ours depends on this very version; see VOXI_SYMBOL_VERSION.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")
# Our own libraries are not looked up in Debian's packages: DEPENDS names theirs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
include(CPack)
