# The shared library: the exports, the code that runs when it is loaded, and the rooms behind them.
# Each export carries its C name with one leading underscore.
add_library(zenithor SHARED src/entry/exports.cpp)
target_link_libraries(zenithor PRIVATE entry zenithor_export_list zenithor_library_flags)
set_target_properties(zenithor PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  LIBRARY_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM}
  ARCHIVE_OUTPUT_DIRECTORY ${ZENITHOR_OUT}/${ZENITHOR_PLATFORM})

if(WIN32)
  enable_language(RC)
  # The linker's file lists the exported names; those of the import libraries give them their C
  # names: GNU dlltool imports by another name, LLVM's makes an alias of a name that is imported.
  set(link_names "LIBRARY zenithor.dll\nEXPORTS\n")
  set(gnu_names "LIBRARY zenithor.dll\nEXPORTS\n")
  set(msvc_names "LIBRARY zenithor.dll\nEXPORTS\n")
  foreach(name ${zenithor_exports})
    string(APPEND link_names "  _${name} = ${name}\n")
    string(APPEND gnu_names "  ${name} == _${name}\n")
    string(APPEND msvc_names "  _${name}\n  ${name} == _${name}\n")
  endforeach()
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zenithor.def CONTENT "${link_names}")
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/import_gnu.def CONTENT "${gnu_names}")
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/import_msvc.def CONTENT "${msvc_names}")
  set(RC_INTERNAL_NAME zenithor)
  set(RC_DESCRIPTION "Zenithor astronomical computations")
  configure_file(packaging/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
  target_sources(zenithor PRIVATE src/entry/attach_windows.cpp ${PROJECT_BINARY_DIR}/version.rc)
  set_target_properties(zenithor PROPERTIES PREFIX "" IMPORT_PREFIX "lib"
    LINK_DEPENDS ${PROJECT_BINARY_DIR}/zenithor.def)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(image_base 0x6A000000)
    set(machine i386)
    # No exception handler lies in it, so the system accepts none from it.
    target_link_options(zenithor PRIVATE -Wl,--no-seh)
  else()
    set(image_base 0x36A000000)
    set(machine i386:x86-64)
    target_link_options(zenithor PRIVATE -Wl,--high-entropy-va)
  endif()
  # Same bytes from the same sources: no timestamp, a fixed base, no build path, stripped.
  target_link_options(zenithor PRIVATE -static -s ${PROJECT_BINARY_DIR}/zenithor.def
    -Wl,--no-insert-timestamp -Wl,--image-base,${image_base} -Wl,--dynamicbase -Wl,--nxcompat
    -Wl,--gc-sections)
  target_link_libraries(zenithor PRIVATE shell32 user32)

  # The linker has written an import library of the underscored names; hosts link by the C names.
  # The names that dlltool is given end up in the library, so they hold no path.
  find_program(GNU_DLLTOOL NAMES ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-dlltool REQUIRED)
  add_custom_command(TARGET zenithor POST_BUILD VERBATIM
    COMMAND ${CMAKE_COMMAND} -E rm -f $<TARGET_LINKER_FILE:zenithor>
    COMMAND ${GNU_DLLTOOL} -t zenithor_ -d ${PROJECT_BINARY_DIR}/import_gnu.def
      -l $<TARGET_LINKER_FILE_NAME:zenithor>
    WORKING_DIRECTORY $<TARGET_FILE_DIR:zenithor>)
  find_program(LLVM_DLLTOOL NAMES llvm-dlltool)
  if(LLVM_DLLTOOL)
    add_custom_command(TARGET zenithor POST_BUILD VERBATIM
      COMMAND ${LLVM_DLLTOOL} -m ${machine} -d ${PROJECT_BINARY_DIR}/import_msvc.def -l zenithor.lib
      WORKING_DIRECTORY $<TARGET_FILE_DIR:zenithor>)
  else()
    message(STATUS "No llvm-dlltool: zenithor.lib for Microsoft's linker is not built")
  endif()
else()
  target_sources(zenithor PRIVATE src/entry/attach_linux.cpp)
  include(shared_object)
  list(TRANSFORM zenithor_exports PREPEND _ OUTPUT_VARIABLE symbols)
  zenithor_shared_object(zenithor ZENITHOR ${symbols})
endif()
