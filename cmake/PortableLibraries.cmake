# Run when the portable folder is installed: adds Qt's plugins, and the libraries that a minimal desktop lacks, with
# their licences.

set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
list(TRANSFORM plugins PREPEND "${qt_plugins}/" OUTPUT_VARIABLE plugin_files)
foreach(plugin IN LISTS plugins)
  cmake_path(GET plugin PARENT_PATH kind)
  file(INSTALL "${qt_plugins}/${plugin}" DESTINATION "${folder}/plugins/${kind}")
endforeach()
file(WRITE "${folder}/qt.conf" "[Paths]\nPrefix = .\nPlugins = plugins\n")

# The C library and the display server's libraries, which graphics drivers load as well.
set(of_the_system
  "^ld-linux" "^lib(c|m|dl|rt|pthread|resolv|util|anl)\\.so"
  "^lib(X11|X11-xcb|xcb|Xau|Xdmcp|wayland-client|drm|gbm)\\.so")
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES "${program}" "${unzip}" LIBRARIES "${opened_by_name}" MODULES ${plugin_files}
  RESOLVED_DEPENDENCIES_VAR libraries
  PRE_EXCLUDE_REGEXES ${of_the_system})
list(APPEND libraries "${opened_by_name}")
list(SORT libraries)
file(MAKE_DIRECTORY "${folder}/lib" "${folder}/licenses")
foreach(library IN LISTS libraries)
  cmake_path(GET library FILENAME name)
  file(COPY_FILE "${library}" "${folder}/lib/${name}")
endforeach()

# Unpacks updates on systems without one.
file(COPY_FILE "${unzip}" "${folder}/lib/unzip")
execute_process(COMMAND patchelf --set-rpath "$ORIGIN" "${folder}/lib/unzip" COMMAND_ERROR_IS_FATAL ANY)

file(COPY_FILE "${own_licence}" "${folder}/licenses/corvane")
set(files)
foreach(file IN LISTS libraries plugin_files unzip)
  file(REAL_PATH "${file}" file)
  list(APPEND files "${file}")
endforeach()
# Packages of Debian 12 may list files of /usr/lib under /lib.
list(TRANSFORM files REPLACE "^/usr" "" OUTPUT_VARIABLE other_names)
execute_process(COMMAND dpkg-query --search ${files} ${other_names} OUTPUT_VARIABLE found ERROR_QUIET)
foreach(file IN LISTS files)
  string(REGEX REPLACE "^/usr" "(/usr)?" pattern "${file}")
  string(REGEX REPLACE "([.+])" "\\\\\\1" pattern "${pattern}")
  if(NOT "\n${found}" MATCHES "\n([^:\n]+)[^\n]*: ${pattern}\n")
    message(FATAL_ERROR "No package has ${file}, so its licence is unknown")
  endif()
  file(COPY_FILE "/usr/share/doc/${CMAKE_MATCH_1}/copyright" "${folder}/licenses/${CMAKE_MATCH_1}")
endforeach()
