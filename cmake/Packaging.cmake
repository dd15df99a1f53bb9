# Packages of what `cmake --install` installs: on Linux a Debian package (packaging/build-deb makes and checks it),
# elsewhere an archive of the program and its library; Qt's own libraries are not in it.
set(CPACK_PACKAGE_NAME zelvar-servo-manager)
set(CPACK_PACKAGE_VENDOR "Zelvar Servo Manager authors")
set(CPACK_PACKAGE_CONTACT "Zelvar Servo Manager authors <maintainers@ostravel.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configure and monitor smart servo motors")
set(CPACK_PACKAGE_DESCRIPTION
"Zelvar Servo Manager connects to one smart servo motor on a serial bus, shows
its state live, edits its parameters in physical units, shows its raw register
table, finds servos on the bus, and reboots or factory-resets one. It speaks to
servos of the Zelvar family and, with a smaller register table, to the
Dynamixel AX-12.
.
The command zelvar-servo does the same from a shell, for several servos on one
bus, and without a display.
.
A simulated bus for trying everything without a servo comes with it, and a udev
rule that lets the user at the machine use USB serial adapters.")
set(CPACK_STRIP_FILES TRUE)
set(CPACK_VERBATIM_VARIABLES TRUE)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    # The Debian changelog is the one place that has the package's revision; a version that it does not know yet is
    # a release somebody forgot to write down.
    file(STRINGS packaging/debian/changelog zelvar_changelog LIMIT_COUNT 1)
    file(READ packaging/linux/com.ostravel.ZelvarServoManager.metainfo.xml zelvar_metainfo)
    if(NOT zelvar_changelog MATCHES "^${CPACK_PACKAGE_NAME} \\(${PROJECT_VERSION}-([0-9]+)\\)")
        message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}.")
    endif()
    set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})
    if(NOT zelvar_metainfo MATCHES "<release version=\"${PROJECT_VERSION}\"")
        message(FATAL_ERROR "The AppStream metainfo has no release ${PROJECT_VERSION}.")
    endif()

    set(CPACK_GENERATOR DEB)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/finish.cmake)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qttranslations5-l10n) # Qt's own texts
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
    set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/postinst)
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
elseif(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
endif()
include(CPack)
