# A room is a folder of src/ compiled as one static library. Its headers are visible, as
# "<room>/<header>.h", only to rooms that name it among their dependencies: an include that points up
# does not compile.
function(zenithor_room name)
  set(zenithor_rooms ${zenithor_rooms} ${name} PARENT_SCOPE)
  cmake_parse_arguments(ROOM "" "" "USES;EXCEPT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${name}/*.cpp)
  foreach(file ${ROOM_EXCEPT})
    list(REMOVE_ITEM sources ${PROJECT_SOURCE_DIR}/src/${name}/${file})
  endforeach()
  set(visible ${PROJECT_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${visible})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${name} ${visible}/${name} SYMBOLIC)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${visible})
  target_link_libraries(${name} PUBLIC ${ROOM_USES} PRIVATE zenithor_library_flags)
endfunction()
