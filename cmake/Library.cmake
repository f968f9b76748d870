# kuvel_library(NAME PAIRS … HEADERS … SOURCES … PUBLIC … PRIVATE …): the library of the folder that calls it.
#
# PAIRS names classes, each a .h and a .cpp; PUBLIC and PRIVATE are what it is linked with. Includes name the path from
# the root, and a library finds only the headers of what it is linked with: they are linked, file by file, into a folder
# of the library's own, the one folder that it adds to the search path. So an arrow that no link line draws does not
# compile.
function(kuvel_library name)
    cmake_parse_arguments(PARSE_ARGV 1 lib "" "" "PAIRS;HEADERS;SOURCES;PUBLIC;PRIVATE")
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    set(headers ${lib_HEADERS})
    set(sources ${lib_SOURCES})
    foreach(pair ${lib_PAIRS})
        list(APPEND headers ${pair}.h)
        list(APPEND sources ${pair}.cpp)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${pair}.ui)
            list(APPEND sources ${pair}.ui)
        endif()
    endforeach()
    add_library(${name} STATIC ${headers} ${sources})

    set(house ${CMAKE_BINARY_DIR}/include/${name})
    file(REMOVE_RECURSE ${house})
    file(MAKE_DIRECTORY ${house}/${folder})
    foreach(header ${headers})
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${house}/${folder}/${header} COPY_ON_ERROR SYMBOLIC)
    endforeach()
    target_include_directories(${name} PUBLIC ${house})
    target_link_libraries(${name} PUBLIC ${lib_PUBLIC} PRIVATE ${lib_PRIVATE} kuvel_warnings)

    # One precompiled header for the core and one for the windows.
    if(NOT folder MATCHES "^windows/")
        set(first kuvel_base)
        set(precompiled <QString> <QStringList> <functional> <map> <memory> <string> <vector>)
    else()
        set(first kuvel_widgets)
        set(precompiled <QtWidgets/QtWidgets>)
    endif()
    if(name STREQUAL first)
        target_precompile_headers(${name} PRIVATE ${precompiled})
    else()
        target_precompile_headers(${name} REUSE_FROM ${first})
    endif()
endfunction()
