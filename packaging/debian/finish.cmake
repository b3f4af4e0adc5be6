# Run by CPack on the tree that it packs: adds what only a Debian package has.
set(share ${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(documents ${share}/doc/${CPACK_PACKAGE_NAME})

configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${documents}/copyright COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${documents}/changelog.Debian @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md ${documents}/changelog COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides
    ${share}/lintian/overrides/${CPACK_PACKAGE_NAME} COPYONLY)

file(GLOB pages ${share}/man/man*/*.[1-9])
execute_process(
    COMMAND gzip -9nf ${pages} ${documents}/changelog ${documents}/changelog.Debian
    COMMAND_ERROR_IS_FATAL ANY)
