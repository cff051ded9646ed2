# What `cmake --install` puts in place on Linux: libraries, headers, programs with their manual pages
# and completions, data, a package for CMake and files for pkg-config. Nothing in them says where they
# stand, so the tree may be moved. Components: libraries, development, programs, data.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(data ${CMAKE_INSTALL_DATADIR}/tavvin_files/archive)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/zenithor)
set(from ${PROJECT_SOURCE_DIR}/packaging/linux)
set(into ${PROJECT_BINARY_DIR}/package)

foreach(library zenithor zenithor_values)
  target_include_directories(${library} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
install(TARGETS zenithor zenithor_values EXPORT zenithor
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libraries NAMELINK_COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zenithor DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development FILES_MATCHING PATTERN *.h)
install(EXPORT zenithor NAMESPACE zenithor:: FILE zenithor-targets.cmake DESTINATION ${package}
  COMPONENT development)
configure_package_config_file(${from}/zenithor-config.cmake.in ${into}/zenithor-config.cmake
  INSTALL_DESTINATION ${package} PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(${into}/zenithor-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${into}/zenithor-config.cmake ${into}/zenithor-config-version.cmake
  DESTINATION ${package} COMPONENT development)

# The way from pkg-config's file to the prefix; a folder that is not below it stands as it is.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
  OUTPUT_VARIABLE library_folder)
file(RELATIVE_PATH up ${library_folder}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" up "${up}")
foreach(kind INCLUDEDIR LIBDIR DATADIR)
  cmake_path(APPEND pc_${kind} "\${prefix}" "${CMAKE_INSTALL_${kind}}")
endforeach()
function(zenithor_pc_file name description)
  configure_file(${from}/library.pc.in ${into}/${name}.pc @ONLY)
  install(FILES ${into}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
endfunction()
zenithor_pc_file(zenithor "Positions, rising and events of Sun, Moon and planets, by records")
zenithor_pc_file(zenithor_values
  "Positions, rising, events and searches, by numbers and arrays, with the data inside")

if(TARGET almanac)
  # It loads the library when it runs: the one of its own tree.
  if(NOT IS_ABSOLUTE ${CMAKE_INSTALL_BINDIR} AND NOT IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    file(RELATIVE_PATH to_library /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    target_compile_definitions(almanac PRIVATE ZENITHOR_LIBRARY_FOLDER="${to_library}")
  endif()
  install(TARGETS almanac DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
  # Where each shell looks for completions.
  set(pages ${PROJECT_SOURCE_DIR}/packaging/almanac)
  install(FILES ${pages}/almanac.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
  install(FILES ${pages}/almanac.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME almanac COMPONENT programs)
  install(FILES ${pages}/_almanac DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    COMPONENT programs)
  install(FILES ${pages}/almanac.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT programs)
endif()
if(TARGET karvo)
  install(TARGETS karvo DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/linux/karvo.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
endif()
install(FILES ${ZENITHOR_ARCHIVE}/karvo.ndx ${ZENITHOR_ARCHIVE}/karvo.dat
  ${ZENITHOR_ARCHIVE}/manifest.json DESTINATION ${data} COMPONENT data)
