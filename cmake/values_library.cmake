# The values library: its exports, the code that runs when it is loaded, the data, and the rooms
# behind them.
#   zenithor_value_exports   the names of its exports
# 32-bit Windows: stdcall, exported by the C names without decoration.
set(list ${PROJECT_SOURCE_DIR}/src/values/export_list.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
file(READ ${list} text)
string(REGEX MATCHALL "\nVALUES_EXPORT\\([^(]*\\([^)]*\\)" entries "${text}")
set(zenithor_value_exports)
foreach(entry ${entries})
  string(REGEX MATCH "\nVALUES_EXPORT\\(([^,]*), ([A-Za-z]*),[ \n]*\\(([^)]*)\\)" match "${entry}")
  set(name Zenithor${CMAKE_MATCH_2})
  string(REGEX REPLACE "[ \n]+" " " parameters "${CMAKE_MATCH_3}")
  list(APPEND zenithor_value_exports ${name})
  # What 32-bit stdcall pushes: eight bytes for a double, four for a number or a pointer.
  set(bytes 0)
  if(NOT parameters STREQUAL "void")
    string(REPLACE "," ";" parameters "${parameters}")
    foreach(parameter ${parameters})
      if(parameter MATCHES "double [a-z]")
        math(EXPR bytes "${bytes} + 8")
      else()
        math(EXPR bytes "${bytes} + 4")
      endif()
    endforeach()
  endif()
  set(stack_${name} ${bytes})
endforeach()

add_library(zenithor_values SHARED src/values/exports.cpp src/values/attach.cpp)
target_link_libraries(zenithor_values PRIVATE values_data zenithor_library_flags)
set_target_properties(zenithor_values PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  LIBRARY_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  ARCHIVE_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM})

if(WIN32)
  # Inside, a 32-bit function has its stack bytes in its name; the exported names have not, and the
  # import libraries turn the one into the other.
  set(link_names "LIBRARY zenithor_values.dll\nEXPORTS\n")
  set(import_names "LIBRARY zenithor_values.dll\nEXPORTS\n")
  foreach(name ${zenithor_value_exports})
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
      string(APPEND link_names "  ${name} = ${name}@${stack_${name}}\n")
      string(APPEND import_names "  ${name}@${stack_${name}}\n")
    else()
      string(APPEND link_names "  ${name}\n")
      string(APPEND import_names "  ${name}\n")
    endif()
  endforeach()
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zenithor_values.def CONTENT "${link_names}")
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/import_values.def CONTENT "${import_names}")
  set(RC_INTERNAL_NAME zenithor_values)
  set(RC_DESCRIPTION "Zenithor astronomical values")
  configure_file(packaging/version.rc.in ${PROJECT_BINARY_DIR}/values_version.rc @ONLY)
  target_sources(zenithor_values PRIVATE ${PROJECT_BINARY_DIR}/values_version.rc)
  set_target_properties(zenithor_values PROPERTIES PREFIX "" IMPORT_PREFIX "lib"
    LINK_DEPENDS ${PROJECT_BINARY_DIR}/zenithor_values.def)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(values_base 0x6B000000)
    target_link_options(zenithor_values PRIVATE -Wl,--no-seh)
  else()
    set(values_base 0x36B000000)
    target_link_options(zenithor_values PRIVATE -Wl,--high-entropy-va)
  endif()
  target_link_options(zenithor_values PRIVATE -static -s ${PROJECT_BINARY_DIR}/zenithor_values.def
    -Wl,--no-insert-timestamp -Wl,--image-base,${values_base} -Wl,--dynamicbase -Wl,--nxcompat
    -Wl,--gc-sections)
  add_custom_command(TARGET zenithor_values POST_BUILD VERBATIM
    COMMAND ${CMAKE_COMMAND} -E rm -f $<TARGET_LINKER_FILE:zenithor_values>
    COMMAND ${GNU_DLLTOOL} -k -t zenithor_values_ -d ${PROJECT_BINARY_DIR}/import_values.def
      -l $<TARGET_LINKER_FILE_NAME:zenithor_values>
    WORKING_DIRECTORY $<TARGET_FILE_DIR:zenithor_values>)
  if(LLVM_DLLTOOL)
    add_custom_command(TARGET zenithor_values POST_BUILD VERBATIM
      COMMAND ${LLVM_DLLTOOL} -k -m ${machine} -d ${PROJECT_BINARY_DIR}/import_values.def
        -l zenithor_values.lib
      WORKING_DIRECTORY $<TARGET_FILE_DIR:zenithor_values>)
  endif()
else()
  zenithor_shared_object(zenithor_values ZENITHOR_VALUES ${zenithor_value_exports})
endif()
