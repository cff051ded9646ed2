# The data that the values library has inside. They are built by the native preset (make data).
enable_language(ASM)
set(data_files ${ZENITHOR_ARCHIVE}/karvo.ndx ${ZENITHOR_ARCHIVE}/karvo.dat)
set(fingerprint ${PROJECT_BINARY_DIR}/values/data_fingerprint.inc)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/values)
add_custom_command(OUTPUT ${fingerprint}
  COMMAND ${CMAKE_COMMAND} -D FIRST=${ZENITHOR_ARCHIVE}/karvo.ndx
    -D SECOND=${ZENITHOR_ARCHIVE}/karvo.dat -D JOINED=${fingerprint}.joined -D OUTPUT=${fingerprint}
    -P ${PROJECT_SOURCE_DIR}/cmake/data_fingerprint.cmake
  DEPENDS ${data_files} ${PROJECT_SOURCE_DIR}/cmake/data_fingerprint.cmake
  VERBATIM COMMENT "Taking the fingerprint of the data")
add_library(values_data STATIC src/values/data.cpp src/values/data.S ${fingerprint})
target_include_directories(values_data PRIVATE ${PROJECT_BINARY_DIR}/values)
target_link_libraries(values_data PUBLIC values PRIVATE zenithor_library_flags)
set_source_files_properties(src/values/data.S PROPERTIES
  OBJECT_DEPENDS "${data_files}"
  COMPILE_DEFINITIONS
    "ZENITHOR_INDEX_FILE=\"${ZENITHOR_ARCHIVE}/karvo.ndx\";ZENITHOR_DATA_FILE=\"${ZENITHOR_ARCHIVE}/karvo.dat\"")
if(ZENITHOR_TOOLS)
  add_dependencies(values_data data)
endif()

