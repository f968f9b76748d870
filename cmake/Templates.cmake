# The report templates that are delivered with the program, made from the one description of the form.
# The stamp lies among them, so that they are made again when their folder was removed.
find_package(Python3 3.11 REQUIRED COMPONENTS Interpreter)
find_program(SOFFICE soffice REQUIRED)
set(KUVEL_TEMPLATES ${CMAKE_BINARY_DIR}/bin/templates)
add_custom_command(OUTPUT ${KUVEL_TEMPLATES}/stamp
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/templates/make_templates ${KUVEL_TEMPLATES}
    COMMAND ${CMAKE_COMMAND} -E touch ${KUVEL_TEMPLATES}/stamp
    DEPENDS ${CMAKE_SOURCE_DIR}/templates/make_templates ${CMAKE_SOURCE_DIR}/templates/form.toml
        ${CMAKE_SOURCE_DIR}/templates/layout.py ${CMAKE_SOURCE_DIR}/templates/flatods.py
    COMMENT "Making the report templates" VERBATIM)
add_custom_target(kuvel_templates ALL DEPENDS ${KUVEL_TEMPLATES}/stamp)
