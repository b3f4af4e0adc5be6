# The headers that most files include, compiled once for the program and once, with the test libraries,
# for the tests: half as long to wait for the whole build. The other presets do without, and so tell
# when a file forgets an include.
option(CORVANE_PRECOMPILE "Precompile the headers that most files include" OFF)

set(precompiled_headers <algorithm> <chrono> <functional> <map> <memory> <optional> <variant>
    <QtCore/QDateTime> <QtCore/QHash> <QtCore/QJsonArray> <QtCore/QJsonDocument>
    <QtCore/QJsonObject> <QtCore/QList> <QtCore/QMap> <QtCore/QObject> <QtCore/QSet>
    <QtCore/QString> <QtCore/QStringList> <QtCore/QUrl>)
set(precompiled_test_headers <gmock/gmock.h> <rapidcheck/gtest.h>)

# Takes the headers that the first target of its kind has compiled.
function(corvane_precompile target)
    get_target_property(type ${target} TYPE)
    get_target_property(sources ${target} SOURCES)
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if(NOT type MATCHES "LIBRARY|EXECUTABLE" OR type STREQUAL "INTERFACE_LIBRARY"
            OR NOT sources MATCHES "\\.cpp" OR NOT libraries MATCHES "corvane")
        return()
    endif()
    set(kind program)
    set(headers ${precompiled_headers})
    if(libraries MATCHES "GTest|rapidcheck")
        set(kind tests)
        list(APPEND headers ${precompiled_test_headers})
        set_property(TARGET ${target} PROPERTY CORVANE_IS_TEST ON)
    endif()
    # Some libraries ask for threads, and all who share the headers must be compiled alike.
    target_compile_options(${target} PRIVATE -pthread)
    get_property(first GLOBAL PROPERTY corvane_precompiled_${kind})
    if(first)
        target_precompile_headers(${target} REUSE_FROM ${first})
    else()
        set_property(GLOBAL PROPERTY corvane_precompiled_${kind} ${target})
        target_precompile_headers(${target} PRIVATE ${headers})
    endif()
endfunction()

function(corvane_precompile_all folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        corvane_precompile(${target})
    endforeach()
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS subfolders)
        corvane_precompile_all(${subfolder})
    endforeach()
endfunction()

if(CORVANE_PRECOMPILE)
    corvane_precompile_all(${CMAKE_SOURCE_DIR})
endif()
