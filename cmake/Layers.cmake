# One target per folder: a layer can include its own headers and those of the layers listed for it in src/layers.
set_property(DIRECTORY "${CMAKE_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/layers")

add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wsuggest-override -Werror
  "$<$<CXX_COMPILER_ID:Clang>:-Wdocumentation>")

# corvane_layer([USES target...] [PRIVATE_USES target...]): a static library of all sources in the calling folder, named
# like the folder and linked to the layers listed for it in src/layers.
function(corvane_layer)
  cmake_parse_arguments(layer "" "" "USES;PRIVATE_USES" ${ARGN})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${CMAKE_SOURCE_DIR}/src" OUTPUT_VARIABLE folder)
  string(REPLACE "/" "_" name "${folder}")
  file(STRINGS "${CMAKE_SOURCE_DIR}/src/layers" line REGEX "^${folder}( |$)")
  if(line STREQUAL "")
    message(FATAL_ERROR "src/layers has no line for \"${folder}\"")
  endif()
  string(REGEX MATCHALL "[^ ]+" others "${line}")
  list(REMOVE_ITEM others "${folder}" curl Qt)
  list(TRANSFORM others REPLACE "/" "_")
  list(APPEND layer_USES ${others})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_library(${name} STATIC ${sources})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${headers})
  target_link_libraries(${name} PUBLIC ${layer_USES} PRIVATE ${layer_PRIVATE_USES} corvane_warnings)
  if(toolkit IN_LIST layer_USES AND NOT name STREQUAL toolkit_qt)
    target_precompile_headers(${name} REUSE_FROM toolkit)
  endif()
endfunction()

# corvane_program(NAME [USES target...]): a program of all sources in the calling folder.
function(corvane_program name)
  cmake_parse_arguments(program "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${program_USES} corvane_warnings)
endfunction()
