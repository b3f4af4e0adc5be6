# The headers that most files include, compiled once for each target: a third less to wait for the
# whole build. The other presets do without, and so tell when a file forgets an include.
option(CORVANE_PRECOMPILE "Precompile the headers that most files include" OFF)

function(corvane_precompile target)
    get_target_property(type ${target} TYPE)
    get_target_property(sources ${target} SOURCES)
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if(NOT type MATCHES "STATIC_LIBRARY|EXECUTABLE" OR NOT sources MATCHES "\\.cpp"
            OR NOT libraries MATCHES "corvane|Qt6")
        return()
    endif()
    set(headers <algorithm> <functional> <map> <memory> <optional> <variant>
        <QtCore/QDateTime> <QtCore/QHash> <QtCore/QJsonArray> <QtCore/QJsonDocument>
        <QtCore/QJsonObject> <QtCore/QList> <QtCore/QMap> <QtCore/QObject> <QtCore/QSet>
        <QtCore/QString> <QtCore/QStringList> <QtCore/QUrl>)
    if(libraries MATCHES "GTest::gmock")
        list(APPEND headers <gmock/gmock.h>)
    endif()
    if(libraries MATCHES "rapidcheck")
        list(APPEND headers <rapidcheck/gtest.h>)
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
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
