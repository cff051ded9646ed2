# The names by which the dynamic linker knows a library on Linux:
#   zenithor_shared_object(TARGET NODE SYMBOL...)
# Programs that are linked with it ask for lib<TARGET>.so.<major version>, and for each symbol in the
# version <NODE>_<major version>, so that no other library's symbol of the same name is taken for it.
# lib<TARGET>.so and the name with the major version are links to the file with the whole version.
function(zenithor_shared_object target node)
  string(JOIN "; " exported ${ARGN})
  set(map ${PROJECT_BINARY_DIR}/${target}.map)
  file(GENERATE OUTPUT ${map}
    CONTENT "${node}_${PROJECT_VERSION_MAJOR} { global: ${exported}; local: *; };\n")
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${map})
  target_link_options(${target} PRIVATE -Wl,--version-script=${map} -Wl,-z,defs -Wl,-z,relro,-z,now)
  # The system's start files are not marked for control-flow enforcement, and the mark of a library
  # is that of all its parts; nothing in it needs them.
  target_link_options(${target} PRIVATE -nostartfiles)
endfunction()
