# The C++ headers of LibreOffice's UNO types, generated once from the installed type descriptions.
set(UNO_PROGRAM_DIR /usr/lib/libreoffice/program)
set(UNO_INCLUDE_DIR /usr/include/libreoffice)
set(UNO_GENERATED_DIR ${CMAKE_BINARY_DIR}/uno)
find_program(CPPUMAKER cppumaker REQUIRED PATHS /usr/lib/libreoffice/sdk/bin)
if(NOT EXISTS ${UNO_GENERATED_DIR}/stamp)
    message(STATUS "Generating the UNO headers")
    execute_process(COMMAND ${CPPUMAKER} -Gc -O${UNO_GENERATED_DIR}
        ${UNO_PROGRAM_DIR}/types.rdb ${UNO_PROGRAM_DIR}/types/offapi.rdb
        RESULT_VARIABLE UNO_RESULT OUTPUT_QUIET ERROR_VARIABLE UNO_ERROR)
    if(NOT UNO_RESULT EQUAL 0)
        message(FATAL_ERROR "cppumaker failed: ${UNO_ERROR}")
    endif()
    file(TOUCH ${UNO_GENERATED_DIR}/stamp)
endif()

add_library(kuvel_uno INTERFACE)
target_include_directories(kuvel_uno SYSTEM INTERFACE ${UNO_GENERATED_DIR} ${UNO_INCLUDE_DIR})
target_compile_definitions(kuvel_uno INTERFACE LINUX UNX CPPU_ENV=gcc3 KUVEL_UNO_PROGRAM_DIR="${UNO_PROGRAM_DIR}")
# The libraries lie in LibreOffice's own folder, which not every distribution lists for the loader.
foreach(UNO_LIBRARY uno_sal uno_salhelpergcc3 uno_cppu uno_cppuhelpergcc3)
    find_library(${UNO_LIBRARY}_LIBRARY ${UNO_LIBRARY} REQUIRED PATHS /usr/lib/libreoffice/sdk/lib NO_DEFAULT_PATH)
    target_link_libraries(kuvel_uno INTERFACE ${${UNO_LIBRARY}_LIBRARY})
endforeach()
target_link_options(kuvel_uno INTERFACE "LINKER:-rpath,${UNO_PROGRAM_DIR}")
