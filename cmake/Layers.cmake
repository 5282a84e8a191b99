# One target a folder: a layer sees its own sources and the layers it names, nothing else.

add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wsuggest-override -Werror
  "$<$<CXX_COMPILER_ID:Clang>:-Wdocumentation>")

# corvane_layer(NAME [USES target...] [PRIVATE_USES target...]): a static library of every source in the calling folder.
function(corvane_layer name)
  cmake_parse_arguments(layer "" "" "USES;PRIVATE_USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_library(${name} STATIC ${sources})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${headers})
  target_link_libraries(${name} PUBLIC ${layer_USES} PRIVATE ${layer_PRIVATE_USES} corvane_warnings)
  if(toolkit IN_LIST layer_USES AND NOT name STREQUAL toolkit_qt)
    target_precompile_headers(${name} REUSE_FROM toolkit)
  endif()
endfunction()

# corvane_program(NAME [USES target...]): a program of every source in the calling folder.
function(corvane_program name)
  cmake_parse_arguments(program "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${program_USES} corvane_warnings)
endfunction()
