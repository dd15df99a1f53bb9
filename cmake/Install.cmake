# What `cmake --install` puts where.

# The shared library serves these programs only. On systems with run paths it goes to a folder of their own that
# nothing else searches; the run path is relative, so the installed tree may be moved as a whole. Windows has no run
# paths: there the library lies beside the program. What the program loads when it needs it (cmake/Modules.cmake) lies
# with it in either case.
set(zelvar_private_libdir ${CMAKE_INSTALL_LIBDIR}/zelvar-servo-manager)
set_target_properties(zelvar-servo-manager zelvar-servo PROPERTIES
    INSTALL_RPATH $<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>/${zelvar_plugins_from_programs})

set(zelvar_programs zelvar-servo-manager zelvar-servo)
if(TARGET zelvar-servo-simulator)
    list(APPEND zelvar_programs zelvar-servo-simulator)
endif()
install(TARGETS ${zelvar_programs} zelvarserialport
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${zelvar_private_libdir} NAMELINK_SKIP
    ARCHIVE EXCLUDE_FROM_ALL) # Windows' import library, of no use to a user
install(TARGETS zelvarcharts
    LIBRARY DESTINATION $<IF:$<PLATFORM_ID:Windows>,${CMAKE_INSTALL_BINDIR},${zelvar_private_libdir}>)

if(UNIX)
    foreach(program IN LISTS zelvar_programs)
        install(FILES packaging/man/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    endforeach()
    # The man pages say where the guide is, and the program shows it. With it goes each page that it links to.
    set(zelvar_doc_dir ${CMAKE_INSTALL_DATADIR}/doc/zelvar-servo-manager)
    install(FILES docs/user-guide.md docs/building.md docs/wire-protocol.md docs/zelvar-servo.schema.json
        docs/zservo.schema.json
        DESTINATION ${zelvar_doc_dir})
    install(DIRECTORY docs/screenshots DESTINATION ${zelvar_doc_dir} FILES_MATCHING PATTERN "*.png")
endif()

# The menu entry, the software centre's page and the icons find each other by one name. macOS and Windows have their
# own ways to do this, an application bundle and an installer, which are not made here.
if(UNIX AND NOT APPLE)
    install(FILES packaging/completion/zelvar-servo DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    set(zelvar_application_id com.ostravel.ZelvarServoManager)
    set(zelvar_icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(FILES packaging/linux/${zelvar_application_id}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES packaging/linux/${zelvar_application_id}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES resources/images/zelvar_caption.svg
        DESTINATION ${zelvar_icon_theme}/scalable/apps RENAME ${zelvar_application_id}.svg)
    install(DIRECTORY packaging/icons/hicolor/ DESTINATION ${zelvar_icon_theme})
endif()

# udev looks into lib/udev/rules.d of /usr and /usr/local only, never into an architecture's library folder; for
# another prefix, set an absolute path here.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(ZELVAR_UDEV_RULES_DIR lib/udev/rules.d CACHE STRING "Where the udev rule for serial adapters is installed")
    install(FILES packaging/linux/70-zelvar-servo-manager.rules DESTINATION ${ZELVAR_UDEV_RULES_DIR})
endif()
