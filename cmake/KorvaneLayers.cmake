# The layers of the library. Each source folder is an object library of its own, and all of them
# together make the one shared library `korvane`. A layer's files see only their own folder and the
# folders of the layers it builds on: each layer's include folder holds a single link to its source
# folder, so `#include "Views/..."` from a lower layer finds no file and does not compile.
#
#   korvane_add_layer(<target> FOLDER <folder> SOURCES <files...> [DEPENDS <layer targets...>]
#                     [LIBS <libraries...>] [PRIVATE_LIBS <libraries...>] [NO_QT])
#
# DEPENDS names the layers below that this one may include; LIBS are further public link
# dependencies, PRIVATE_LIBS those that stay inside the layer. NO_QT keeps Qt out of the layer.

set(KORVANE_LAYER_INCLUDE_ROOT ${CMAKE_BINARY_DIR}/layers)
set(KORVANE_EXPORT_INCLUDE_DIR ${CMAKE_BINARY_DIR}/export)
set_property(GLOBAL PROPERTY KORVANE_LAYERS "")

function(korvane_add_layer target)
    cmake_parse_arguments(ARG "NO_QT" "FOLDER" "SOURCES;DEPENDS;LIBS;PRIVATE_LIBS" ${ARGN})
    set(include_dir ${KORVANE_LAYER_INCLUDE_ROOT}/${ARG_FOLDER})
    file(MAKE_DIRECTORY ${include_dir})
    if(NOT EXISTS ${include_dir}/${ARG_FOLDER})
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${ARG_FOLDER} ${include_dir}/${ARG_FOLDER} SYMBOLIC)
    endif()

    add_library(${target} OBJECT ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${include_dir} ${KORVANE_EXPORT_INCLUDE_DIR})
    target_link_libraries(${target} PUBLIC ${ARG_DEPENDS} ${ARG_LIBS} PRIVATE ${ARG_PRIVATE_LIBS})
    # The objects land in the shared library, so they are compiled as its own.
    target_compile_definitions(${target} PRIVATE korvane_EXPORTS)
    if(ARG_NO_QT)
        set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
    else()
        target_link_libraries(${target} PUBLIC Qt5::Core Qt5::Gui Qt5::Widgets)
        target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_BYTEARRAY QT_DEPRECATED_WARNINGS
                                                     QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
    endif()
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
    korvane_set_warnings(${target})
    set_property(GLOBAL APPEND PROPERTY KORVANE_LAYERS ${target})
endfunction()
