# Every committed sample is what its readable source says, to the byte.
file(GLOB sources ${SAMPLES}/sources/*.txt)
if(NOT sources)
  message(FATAL_ERROR "no sources in ${SAMPLES}/sources")
endif()
foreach(source IN LISTS sources)
  get_filename_component(name ${source} NAME_WE)
  file(GLOB sample ${SAMPLES}/${name}.?[CP]S)
  get_filename_component(file ${sample} NAME)
  set(made ${CMAKE_CURRENT_BINARY_DIR}/made-${file})
  execute_process(COMMAND ${MAKE_SAMPLES} ${source} ${made} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${sample} ${made}
                          COMMAND_ERROR_IS_FATAL ANY)
endforeach()
