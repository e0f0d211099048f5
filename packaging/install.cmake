# What `cmake --install` puts where, in two components: console has what runs in the terminal, desktop the window.

set(KVT_HOMEPAGE "" CACHE STRING "Where the project is at home, with its pictures below it; none if empty")
set(KVT_MAINTAINER "Kestrel Vise Toolkit authors <packages@kvt.example>" CACHE STRING "Who makes the packages")
set(KVT_COMPONENT_ID "io.github.kestrel_vise_toolkit.kvt")
set(KVT_MIME_TYPE "text/x-emco-cnc")
set(KVT_PACKAGE_FILES ${CMAKE_BINARY_DIR}/packaging)

# The change log has the date of each version, and this one must be among them.
file(STRINGS CHANGELOG.md release_line REGEX "^## ${PROJECT_VERSION} ")
if(NOT release_line MATCHES "([0-9][0-9][0-9][0-9])-([0-9][0-9])-([0-9][0-9])$")
    message(FATAL_ERROR "CHANGELOG.md has no line \"## ${PROJECT_VERSION} - YYYY-MM-DD\".")
endif()
set(KVT_RELEASE_DATE ${CMAKE_MATCH_0})

foreach(program kvtc iso2emco)
    install(TARGETS ${program} COMPONENT console)
endforeach()
# The names by which the window knows which machine a pre-processor serves.
set(preprocessors ${CMAKE_INSTALL_LIBEXECDIR}/kvt/preprocessors)
file(RELATIVE_PATH bin_from_preprocessors
     ${CMAKE_INSTALL_FULL_LIBEXECDIR}/kvt/preprocessors ${CMAKE_INSTALL_FULL_BINDIR})
foreach(machine MK2 MK4 F1)
    file(MAKE_DIRECTORY ${KVT_PACKAGE_FILES})
    file(CREATE_LINK ${bin_from_preprocessors}/iso2emco ${KVT_PACKAGE_FILES}/iso2emco.${machine} SYMBOLIC)
    install(FILES ${KVT_PACKAGE_FILES}/iso2emco.${machine} DESTINATION ${preprocessors} COMPONENT console)
endforeach()
install(DIRECTORY samples DESTINATION ${CMAKE_INSTALL_DATADIR}/kvt COMPONENT console)

# Manual pages are compressed where that can be done.
function(kvt_install_manual program component)
    install(FILES ${KVT_MANUAL}/man1/${program}.1${KVT_MANUAL_ENDING} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
            COMPONENT ${component})
    install(FILES ${KVT_MANUAL}/completions/${program}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT ${component})
endfunction()
kvt_install_manual(kvtc console)
kvt_install_manual(iso2emco console)

set(console_documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/kvtc)
install(FILES docs/console.md docs/cam.md docs/serial_line.md LICENSE
        DESTINATION ${console_documents} COMPONENT console)
install(FILES packaging/copyright DESTINATION ${console_documents} COMPONENT console)

if(TARGET kvt)
    install(TARGETS kvt COMPONENT desktop)
    install(DIRECTORY ${KVT_HELP} languages DESTINATION ${CMAKE_INSTALL_DATADIR}/kvt COMPONENT desktop)
    kvt_install_manual(kvt desktop)
    install(FILES README.md CHANGELOG.md docs/languages.md docs/printing.md docs/settings.md LICENSE packaging/copyright
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT desktop)
    configure_file(packaging/kvt.desktop.in ${KVT_PACKAGE_FILES}/kvt.desktop @ONLY)
    configure_file(packaging/kvt.mime.xml.in ${KVT_PACKAGE_FILES}/kvt.xml @ONLY)
    # Links to the home page and the pictures below it, where there is one.
    set(KVT_METAINFO_LINKS "")
    if(KVT_HOMEPAGE)
        file(READ packaging/kvt.metainfo.links.xml.in links)
        string(CONFIGURE "${links}" KVT_METAINFO_LINKS @ONLY)
    endif()
    configure_file(packaging/kvt.metainfo.xml.in ${KVT_PACKAGE_FILES}/${KVT_COMPONENT_ID}.metainfo.xml @ONLY)
    install(FILES ${KVT_PACKAGE_FILES}/kvt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
            COMPONENT desktop)
    install(FILES ${KVT_PACKAGE_FILES}/kvt.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
            COMPONENT desktop)
    install(FILES ${KVT_PACKAGE_FILES}/${KVT_COMPONENT_ID}.metainfo.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
    # The icon: kvt.svg, and kvt_SIZE.png for desktops that want points.
    set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    file(GLOB icons CONFIGURE_DEPENDS icons/kvt.svg icons/kvt_*.png)
    foreach(icon IN LISTS icons)
        if(icon MATCHES "_([0-9]+).png$")
            install(FILES ${icon} DESTINATION ${icon_theme}/${CMAKE_MATCH_1}x${CMAKE_MATCH_1}/apps RENAME kvt.png
                    COMPONENT desktop)
        else()
            install(FILES ${icon} DESTINATION ${icon_theme}/scalable/apps COMPONENT desktop)
        endif()
    endforeach()
endif()

include(packaging/packages.cmake)
