# The shared library: the exports, the code that runs when it is loaded, and the rooms behind them.
# src/entry/exports.txt lists the C names; each is exported with one leading underscore.
file(STRINGS ${PROJECT_SOURCE_DIR}/src/entry/exports.txt zenithor_exports)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/src/entry/exports.txt)

add_library(zenithor SHARED src/entry/exports.cpp src/entry/event_exports.cpp)
target_link_libraries(zenithor PRIVATE entry zenithor_library_flags)
set_target_properties(zenithor PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  LIBRARY_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  ARCHIVE_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM})

if(WIN32)
  enable_language(RC)
  # The linker's file lists the exported names; the import library's gives them their C names.
  set(link_names "LIBRARY zenithor.dll\nEXPORTS\n")
  set(import_names "LIBRARY zenithor.dll\nEXPORTS\n")
  foreach(name ${zenithor_exports})
    string(APPEND link_names "  _${name} = ${name}\n")
    string(APPEND import_names "  ${name} == _${name}\n")
  endforeach()
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zenithor.def CONTENT "${link_names}")
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zenithor_import.def CONTENT "${import_names}")
  configure_file(packaging/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
  target_sources(zenithor PRIVATE src/entry/attach_windows.cpp ${PROJECT_BINARY_DIR}/version.rc)
  set_target_properties(zenithor PROPERTIES PREFIX "" IMPORT_PREFIX "lib"
    LINK_DEPENDS ${PROJECT_BINARY_DIR}/zenithor.def)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(image_base 0x6A000000)
  else()
    set(image_base 0x36A000000)
    target_link_options(zenithor PRIVATE -Wl,--high-entropy-va)
  endif()
  # Same bytes from the same sources: no timestamp, a fixed base, no build path, stripped.
  target_link_options(zenithor PRIVATE -static -s ${PROJECT_BINARY_DIR}/zenithor.def
    -Wl,--no-insert-timestamp -Wl,--image-base,${image_base} -Wl,--dynamicbase -Wl,--nxcompat
    -Wl,--gc-sections)
  target_link_libraries(zenithor PRIVATE shell32 user32)
else()
  target_sources(zenithor PRIVATE src/entry/attach_linux.cpp)
  set(symbols "{ global: ")
  foreach(name ${zenithor_exports})
    string(APPEND symbols "_${name}; ")
  endforeach()
  string(APPEND symbols "local: *; };\n")
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zenithor.map CONTENT "${symbols}")
  set_target_properties(zenithor PROPERTIES LINK_DEPENDS ${PROJECT_BINARY_DIR}/zenithor.map)
  target_link_options(zenithor PRIVATE -Wl,--version-script=${PROJECT_BINARY_DIR}/zenithor.map
    -Wl,-z,defs -Wl,-z,relro,-z,now)
endif()
