# Embeds files as byte arrays. When included, defines corvane_embed(); when run with `cmake -P`, writes the source.

# corvane_embed(TARGET file...): adds a source with resources::Find() to the target, rebuilt when a file changes.
function(corvane_embed target)
  set(stems)
  set(files)
  foreach(file IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    cmake_path(GET file STEM LAST_ONLY stem)
    if(stem IN_LIST stems)
      message(FATAL_ERROR "Two resources are called \"${stem}\"")
    endif()
    list(APPEND stems "${stem}")
    list(APPEND files "${file}")
  endforeach()
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${target}.embedded.cpp")
  add_custom_command(OUTPUT "${source}"
    COMMAND "${CMAKE_COMMAND}" "-DFILES=${files}" "-DSOURCE=${source}" -P "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
    DEPENDS ${files} "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
    COMMENT "Embedding ${stems}"
    VERBATIM)
  target_sources(${target} PRIVATE "${source}")
endfunction()

if(NOT CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  return()
endif()

set(arrays "")
set(rows "")
foreach(file IN LISTS FILES)
  cmake_path(GET file STEM LAST_ONLY stem)
  string(MAKE_C_IDENTIFIER "${stem}" identifier)
  file(READ "${file}" bytes HEX)
  if(bytes STREQUAL "")
    message(FATAL_ERROR "\"${file}\" is empty")
  endif()
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  string(APPEND arrays "constexpr unsigned char ${identifier}[] = {${bytes}};\n")
  string(APPEND rows "    {\"${stem}\", ${identifier}},\n")
endforeach()

file(WRITE "${SOURCE}" "#include \"resources/Resource.h\"

namespace {

${arrays}
struct Row {
  std::string_view Name;
  std::span<const unsigned char> Bytes;
};
constexpr Row rows[] = {
${rows}};

}  // namespace

std::span<const std::byte> resources::Find(std::string_view name) {
  for (const Row& row : rows) {
    if (row.Name == name) return std::as_bytes(row.Bytes);
  }
  return {};
}
")
