# CPack: kvtc, which needs no toolkit, kvt, which stands on it, and an archive of the sources. tools/package.sh makes
# and checks them.

set(CPACK_GENERATOR DEB)
set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_PACKAGE_NAME kvt)
set(CPACK_PACKAGE_VENDOR "Kestrel Vise Toolkit")
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
if(KVT_HOMEPAGE)
    set(CPACK_PACKAGE_HOMEPAGE_URL ${KVT_HOMEPAGE})
endif()
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL console)
if(TARGET kvt)
    list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${KVT_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/installed_size.cmake)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(KVT_DEBIAN_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

set(CPACK_DEBIAN_CONSOLE_PACKAGE_NAME kvtc)
set(CPACK_DEBIAN_CONSOLE_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION "checks programs of small CNC lathes and mills
Checks, formats and draws programs of the lathe Compact 5 CNC and the mill
F1 CNC in the terminal, sends them over the serial line and takes in what
the machine sends. It also runs scripts of user actions on the workbench,
converts ISO code of CAM programs, and brings sample programs.")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME kvt)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION science)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "kvtc (= ${KVT_DEBIAN_VERSION})")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS
    "fonts-dejavu-core, libqt6svg6, qt6-qpa-plugins, qt6-translations-l10n, qt6-wayland, shared-mime-info")
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "workbench for the programs of small CNC lathes and mills
Opens, checks, edits and saves the programs of the lathe Compact 5 CNC and
the mill F1 CNC as their controls would run them, draws the tool path while
it is edited, prints, and talks to the machine over the serial line. A whole
program can be typed on the numeric keypad.")

# Change logs in the form that Debian asks for. The date is turned into the system's own form through the clock.
string(REPLACE "-" ";" date_parts ${KVT_RELEASE_DATE})
list(GET date_parts 0 year)
list(GET date_parts 1 month)
list(GET date_parts 2 day)
# Days since 1970-01-01, in years that begin with March.
math(EXPR month "(${month} + 9) % 12")
math(EXPR year "${year} - ${month} / 10")
math(EXPR days "365 * ${year} + ${year} / 4 - ${year} / 100 + ${year} / 400 + (${month} * 306 + 5) / 10 + ${day} - 1 - 719468")
math(EXPR seconds "${days} * 86400")
set(epoch_before "$ENV{SOURCE_DATE_EPOCH}")
set(ENV{SOURCE_DATE_EPOCH} ${seconds})
string(TIMESTAMP KVT_RELEASE_DATE_LONG "%a, %d %b %Y 00:00:00 +0000" UTC)
set(ENV{SOURCE_DATE_EPOCH} "${epoch_before}")
if(epoch_before STREQUAL "")
    unset(ENV{SOURCE_DATE_EPOCH})
endif()
configure_file(packaging/changelog.Debian.in ${KVT_PACKAGE_FILES}/changelog.Debian @ONLY)
configure_file(CHANGELOG.md ${KVT_PACKAGE_FILES}/changelog COPYONLY)
if(KVT_GZIP)
    foreach(log changelog changelog.Debian)
        execute_process(COMMAND ${KVT_GZIP} -9nkf ${KVT_PACKAGE_FILES}/${log})
        install(FILES ${KVT_PACKAGE_FILES}/${log}.gz DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/kvtc
                COMPONENT console)
        install(FILES ${KVT_PACKAGE_FILES}/${log}.gz DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT desktop)
    endforeach()
endif()

set(CPACK_SOURCE_PACKAGE_FILE_NAME kvt-${PROJECT_VERSION}-source)
set(CPACK_SOURCE_IGNORE_FILES "/build/" "/build-[^/]*/" "/\\\\.git/" "/\\\\.git$" "/__pycache__/" "~$" "/\\\\.cache/")
include(CPack)
