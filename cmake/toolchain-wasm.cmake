# Emscripten: WebAssembly, run by Node. The compiler's own file for CMake knows the rest.
execute_process(COMMAND em-config EMSCRIPTEN_ROOT
  OUTPUT_VARIABLE EMSCRIPTEN_ROOT_PATH OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)
include(${EMSCRIPTEN_ROOT_PATH}/cmake/Modules/Platform/Emscripten.cmake)
# The link runs in Node too, and asks it for a module that Debian keeps where Node does not look.
foreach(language C CXX)
  set(CMAKE_${language}_LINKER_LAUNCHER ${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs)
endforeach()
find_program(NODE NAMES node nodejs REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${NODE})
