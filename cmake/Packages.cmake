# The parts of a release, built by scripts/make-release: a Debian package, by cpack, and a folder that runs from any
# place, which is the installation component "portable".

# In Debian's notation, where a test version precedes its final one.
set(debian_version "${CORVANE_VERSION_MAJOR}.${CORVANE_VERSION_MINOR}.${CORVANE_VERSION_BUG}")
if(CORVANE_VERSION MATCHES "[dab][0-9]+$")
  string(APPEND debian_version "~${CMAKE_MATCH_0}")
elseif(CORVANE_VERSION MATCHES "f[0-9]+$")
  string(APPEND debian_version "+${CMAKE_MATCH_0}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_CONTACT "${CORVANE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "control panel for servers with containers")
set(CPACK_PACKAGE_DESCRIPTION "Add a server that runs the Dunmere panel service, read what it says of itself,
reboot or reload it, list, start, stop and restart its Docker containers, and
read their logs.
.
No password is stored.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/FinishPackage.cmake")
set(CPACK_PACKAGE_VERSION "${debian_version}")
set(CPACK_DEBIAN_FILE_NAME "corvane_${CORVANE_VERSION}_amd64.deb")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${CORVANE_HOME_URL}")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the program opens by name or runs, which dpkg-shlibdeps cannot find.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4 (>= 7.87), unzip")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, qt6-wayland, qt6-image-formats-plugins, xdg-utils")
include(CPack)

# Qt's plugins for X11 and Wayland, for input methods, and for the pictures of updates.
set(portable_plugins
  platforms/libqxcb.so
  platforms/libqwayland-generic.so
  wayland-shell-integration/libxdg-shell.so
  wayland-decoration-client/libbradient.so
  platforminputcontexts/libcomposeplatforminputcontextplugin.so
  platforminputcontexts/libibusplatforminputcontextplugin.so
  imageformats/libqgif.so
  imageformats/libqjpeg.so
  imageformats/libqwebp.so)
cmake_path(GET CURL_LIBRARIES PARENT_PATH curl_folder)
install(CODE "
  set(program \"${CMAKE_BINARY_DIR}/portable/corvane\")
  set(opened_by_name \"${curl_folder}/libcurl.so.4\")
  set(unzip /usr/bin/unzip)
  set(qt_plugins \"${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}\")
  set(plugins \"${portable_plugins}\")
  set(own_licence \"${CMAKE_SOURCE_DIR}/LICENSE\")"
  COMPONENT portable EXCLUDE_FROM_ALL)
install(SCRIPT "${CMAKE_CURRENT_LIST_DIR}/PortableLibraries.cmake" COMPONENT portable EXCLUDE_FROM_ALL)
