# Fails when PROGRAM needs the library that opens network connections: only helpers may.
execute_process(COMMAND ${READELF} --dynamic ${PROGRAM}
    OUTPUT_VARIABLE needed COMMAND_ERROR_IS_FATAL ANY)
if(needed MATCHES "libQt6Network")
    file(REMOVE ${PROGRAM})
    message(FATAL_ERROR "The program that stays must not be able to open a network connection")
endif()
