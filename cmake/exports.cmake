# The exports by name, from the one list that the code is made from too:
#   zenithor_exports         all names
#   zenithor_shape_<NAME>    the shape of a prototype, for example SELECTED_EVENT
# Programs that read the list link zenithor_export_list and include "entry/export_list.inc".
set(export_list ${PROJECT_SOURCE_DIR}/src/entry/export_list.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${export_list})
file(STRINGS ${export_list} lines REGEX "^EXPORT_[A-Z_]+\\([A-Z_]+")
set(zenithor_exports)
foreach(line ${lines})
  string(REGEX MATCH "^EXPORT_([A-Z_]+)\\(([A-Z_]+)" match "${line}")
  list(APPEND zenithor_exports ${CMAKE_MATCH_2})
  set(zenithor_shape_${CMAKE_MATCH_2} ${CMAKE_MATCH_1})
endforeach()

set(visible ${PROJECT_BINARY_DIR}/rooms/export_list)
file(MAKE_DIRECTORY ${visible}/entry)
file(CREATE_LINK ${export_list} ${visible}/entry/export_list.inc SYMBOLIC)
add_library(zenithor_export_list INTERFACE)
target_include_directories(zenithor_export_list INTERFACE ${visible})
