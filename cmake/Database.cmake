# The empty database that is delivered with the program, made from its one description.
find_program(SQLITE3_SHELL sqlite3 REQUIRED)
set(KUVEL_DATABASE ${CMAKE_BINARY_DIR}/bin/database/Kuvel.mdb)
add_custom_command(OUTPUT ${KUVEL_DATABASE}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/bin/database
    COMMAND ${CMAKE_COMMAND} -E rm -f ${KUVEL_DATABASE}
    COMMAND ${SQLITE3_SHELL} -batch -bail ${KUVEL_DATABASE} ".read ${CMAKE_SOURCE_DIR}/database/schema.sql"
    DEPENDS ${CMAKE_SOURCE_DIR}/database/schema.sql VERBATIM)
add_custom_target(kuvel_database ALL DEPENDS ${KUVEL_DATABASE})
