# Writes what the sources are at the time of the build to STAMP, as JSON. A stamp of the same sources
# stays, so that nothing is built anew for the time of day alone.
function(ask_git variable)
    set(answer "")
    if(GIT)
        execute_process(COMMAND ${GIT} -C ${SOURCES} ${ARGN}
            OUTPUT_VARIABLE answer ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
    # Not from the archive that these sources were taken out of.
    set(${variable} "${answer}" PARENT_SCOPE)
endfunction()

ask_git(root rev-parse --show-toplevel)
file(REAL_PATH "${SOURCES}" sources)
if(NOT root STREQUAL sources)
    set(GIT "") # the sources are a part of something else
endif()
ask_git(sha describe --always --abbrev=12 --exclude=* --dirty)
ask_git(subject log -1 --format=%s)
ask_git(committed log -1 --format=%cI)
ask_git(branch rev-parse --abbrev-ref HEAD)

set(json "{}")
foreach(field sha subject committed branch)
    string(REPLACE "\\" "\\\\" value "${${field}}")
    string(REPLACE "\"" "\\\"" value "${value}")
    string(JSON json SET "${json}" ${field} "\"${value}\"")
endforeach()
set(old "")
if(EXISTS ${STAMP})
    file(READ ${STAMP} old)
    string(JSON old ERROR_VARIABLE damaged REMOVE "${old}" built_at)
endif()
if(NOT old STREQUAL json)
    string(TIMESTAMP now UTC)
    string(JSON json SET "${json}" built_at "\"${now}\"")
    file(WRITE ${STAMP} "${json}")
endif()
