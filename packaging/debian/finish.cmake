# Run by CPack between installing into the package's root and packing it: adds what a Debian package has beyond
# `cmake --install`, and compresses what Debian wants compressed.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

# Not file(INSTALL): CPack has set DESTDIR, which it would put in front once more.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(doc ${share}/doc/${CPACK_PACKAGE_NAME})
file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright ${CMAKE_CURRENT_LIST_DIR}/changelog DESTINATION ${doc}
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(RENAME ${doc}/changelog ${doc}/changelog.Debian)

find_program(GZIP gzip REQUIRED)
file(GLOB manualPages ${share}/man/man1/*.1)
# Without the name and the time in them, the same pages make the same package.
execute_process(COMMAND ${GZIP} --best --no-name --force ${manualPages} ${doc}/changelog.Debian
    COMMAND_ERROR_IS_FATAL ANY)
