# Fails when PROGRAM needs a library for what comes over the network: only helpers may.
execute_process(COMMAND ${READELF} --dynamic ${PROGRAM}
    OUTPUT_VARIABLE needed COMMAND_ERROR_IS_FATAL ANY)
if(needed MATCHES "libQt6Network|libsodium|libarchive")
    file(REMOVE ${PROGRAM})
    message(FATAL_ERROR "The program that stays must leave to helpers what comes over the network")
endif()
