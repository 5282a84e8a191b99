# Run by cpack before packing: compresses files as Debian requires, and sets all dates to that of the release.

set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
file(GLOB_RECURSE texts "${root}/usr/share/man/*" "${root}/usr/share/doc/corvane/changelog*")
execute_process(COMMAND gzip -9n ${texts} COMMAND_ERROR_IS_FATAL ANY)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find "${root}" -exec touch -h -d "@$ENV{SOURCE_DATE_EPOCH}" {} + COMMAND_ERROR_IS_FATAL ANY)
endif()
