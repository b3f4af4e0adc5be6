# One floor of the house, or one back end: a static library whose headers are included flat.
# A floor reaches only the headers of the floors that it links, so a forbidden include does not compile.
add_library(corvane-options INTERFACE)
target_compile_options(corvane-options INTERFACE -Wall -Wextra -Wshadow -Werror)
target_compile_definitions(corvane-options INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
# What tests themselves do is not watched for undefined behaviour: in their macros, that took a third of the
# time that they are compiled in.
define_property(TARGET PROPERTY CORVANE_IS_TEST)
if(CORVANE_SANITIZE)
    set(undefined $<$<NOT:$<BOOL:$<TARGET_PROPERTY:CORVANE_IS_TEST>>>:$<COMMA>undefined>)
    target_compile_options(corvane-options INTERFACE
        -fsanitize=address${undefined} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(corvane-options INTERFACE -fsanitize=address,undefined)
endif()

function(corvane_module name)
    cmake_parse_arguments(MODULE "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(${name} STATIC ${MODULE_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name}
        PUBLIC corvane-options ${MODULE_LINKS}
        PRIVATE ${MODULE_PRIVATE_LINKS})
endfunction()
