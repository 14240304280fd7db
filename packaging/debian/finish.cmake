# Runs on the files about to be packaged. Debian wants the package's own changelog beside the
# program's, both and the man pages compressed (always to the same bytes), and folders that
# everybody may enter, whatever the umask.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()

set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
set(share ${root}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(doc ${share}/doc/quillbox)
set(everybody_reads OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(everybody_enters ${everybody_reads} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)

file(RENAME ${doc}/CHANGELOG.md ${doc}/changelog)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${doc}/changelog.Debian
               FILE_PERMISSIONS ${everybody_reads} COPYONLY)
execute_process(COMMAND gzip -9n ${doc}/changelog ${doc}/changelog.Debian ${share}/man/man1/quillbox.1
                        ${share}/man/man1/quillbox-cli.1
                        COMMAND_ERROR_IS_FATAL ANY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${share}/lintian/overrides/quillbox
               FILE_PERMISSIONS ${everybody_reads} COPYONLY)
file(CHMOD_RECURSE ${root} DIRECTORY_PERMISSIONS ${everybody_enters})
