# What every target of the tree shares: warnings, sanitizers, Qt's definitions.

add_library(brimlow_options INTERFACE)
target_include_directories(brimlow_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(brimlow_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wconversion -Wno-sign-conversion -Wformat=2 -Wimplicit-fallthrough)
target_compile_definitions(brimlow_options INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER)
if(BRIMLOW_WERROR)
    target_compile_options(brimlow_options INTERFACE -Werror)
endif()
if(BRIMLOW_SANITIZE)
    target_compile_options(brimlow_options INTERFACE
        -fsanitize=${BRIMLOW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(brimlow_options INTERFACE -fsanitize=${BRIMLOW_SANITIZE})
endif()

# brimlow_library(<name> SOURCES ... [PUBLIC ...] [PRIVATE ...]): one folder, one static target.
function(brimlow_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC brimlow_options ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
endfunction()
