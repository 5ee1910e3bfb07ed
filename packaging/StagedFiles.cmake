# Run by CPack over the files of each package before they are packed: pages of the manual are compressed there.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*.1)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9nf ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
