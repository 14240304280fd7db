# Every committed sample equals, to the byte, what its readable source describes: a text of the same
# name, or for media files the folder they were loaded from.
file(GLOB samples RELATIVE ${SAMPLES} ${SAMPLES}/*.?CS ${SAMPLES}/*.MPS)
list(LENGTH samples count)
if(NOT count EQUAL 9)
  message(FATAL_ERROR "a sample of each of the nine kinds is wanted in ${SAMPLES}: ${samples}")
endif()
foreach(sample IN LISTS samples)
  get_filename_component(name ${sample} NAME_WE)
  set(source sources/${name}.txt)
  if(NOT EXISTS ${SAMPLES}/${source})
    set(source media)
  endif()
  set(made ${CMAKE_CURRENT_BINARY_DIR}/made-${sample})
  execute_process(COMMAND ${MAKE_SAMPLES} ${source} ${made} WORKING_DIRECTORY ${SAMPLES}
                          COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SAMPLES}/${sample} ${made}
                          COMMAND_ERROR_IS_FATAL ANY)
endforeach()
