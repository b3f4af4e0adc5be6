# Writes share/corvane/install.json, by which a copy of the program knows what updates it. A build
# includes this file; a release runs it once more (cmake -P), so that the copy has its number.
function(write_install_record record)
    if(NOT CORVANE_INSTALL_KIND MATCHES "^(development|package|bundle)$")
        message(FATAL_ERROR "CORVANE_INSTALL_KIND is development, package or bundle, "
            "not ${CORVANE_INSTALL_KIND}")
    endif()
    if(NOT CORVANE_BUILD MATCHES "^(0|[1-9][0-9]*)$")
        message(FATAL_ERROR "CORVANE_BUILD is a whole number, not ${CORVANE_BUILD}")
    endif()
    if(NOT CORVANE_BUILT MATCHES "^([0-9-]+T[0-9:]+Z)?$")
        message(FATAL_ERROR "CORVANE_BUILT is a time such as 2026-03-01T12:00:00Z, "
            "not ${CORVANE_BUILT}")
    endif()
    foreach(text command maker)
        string(TOUPPER ${text} variable)
        string(REPLACE "\\" "\\\\" ${text} "${CORVANE_UPDATE_${variable}}")
        string(REPLACE "\"" "\\\"" ${text} "${${text}}")
    endforeach()
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/install.json.in ${record} @ONLY)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE)
    write_install_record(${RECORD})
endif()
