# CPack runs this on the files that are about to be packed: Debian wants manual pages and changelogs compressed, and
# the licence in a file of its own form.
set(documents ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/wrenfield-wizard)
set(overrides ${CPACK_TEMPORARY_DIRECTORY}/usr/share/lintian/overrides)

# Not by file(INSTALL), which would put DESTDIR in front once more.
function(place source destination)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${source} ${destination} COPYONLY)
  file(CHMOD ${destination} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

file(REMOVE ${documents}/LICENSE)
file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
place(changelog ${documents}/changelog.Debian)
place(copyright ${documents}/copyright)
file(MAKE_DIRECTORY ${overrides})
place(lintian-overrides ${overrides}/wrenfield-wizard)

file(GLOB to_compress ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man1/*.1 ${documents}/changelog*)
# Debian wants the time of packing left out.
execute_process(COMMAND gzip --best --no-name ${to_compress} COMMAND_ERROR_IS_FATAL ANY)
