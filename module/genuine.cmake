# KVUIMOD.dll: the module for its genuine platform, from the same objects, resources and export list. Its
# siblings are there only as import libraries, one .def file each.
find_program(KV_DLLTOOL ${KV_CROSS}-dlltool REQUIRED)

set(KV_SIBLING_LIBS)
foreach(sibling kvspool kvcore kvlist kvuihost)
    set(exports ${CMAKE_SOURCE_DIR}/framework/exports/${sibling}.def)
    set(library ${CMAKE_CURRENT_BINARY_DIR}/lib${sibling}.a)
    add_custom_command(OUTPUT ${library}
                       COMMAND ${KV_DLLTOOL} --input-def ${exports} --output-lib ${library}
                       DEPENDS ${exports} VERBATIM)
    list(APPEND KV_SIBLING_LIBS ${library})
endforeach()
add_custom_target(kvsiblings DEPENDS ${KV_SIBLING_LIBS})

list(JOIN KV_EXPORTS "\n    " KV_EXPORT_LINES)
set(KV_EXPORT_FILE ${CMAKE_CURRENT_BINARY_DIR}/kvuimod.def)
file(CONFIGURE OUTPUT ${KV_EXPORT_FILE} @ONLY CONTENT
     "LIBRARY KVUIMOD.dll\nEXPORTS\n    @KV_EXPORT_LINES@\n")

add_library(kvuimod SHARED $<TARGET_OBJECTS:kvuimod_objects> ${KV_COFF} ${KV_EXPORT_FILE})
add_dependencies(kvuimod kvsiblings kvuimod_rc)
set_source_files_properties(${KV_COFF} PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
set_target_properties(kvuimod PROPERTIES PREFIX "" OUTPUT_NAME KVUIMOD SUFFIX .dll LINKER_LANGUAGE CXX
                      LINK_DEPENDS "${KV_EXPORT_FILE};${KV_SIBLING_LIBS}")
target_link_libraries(kvuimod PRIVATE ${KV_SIBLING_LIBS})
# The C++ run-time is linked in: the driver brings its own libraries only.
target_link_options(kvuimod PRIVATE -static -s)
