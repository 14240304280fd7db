# Compiles the files of each folder of a target together, in half the time: their headers are read, and
# their templates made, once. Whoever changes a file compiles the folder again, so it is for building
# once. A file is compiled ALONE if it defines a name for itself that another file of its folder
# defines for itself, too:
#   quillbox_by_folder(target [ALONE files...])
function(quillbox_by_folder target)
  cmake_parse_arguments(PARSE_ARGV 1 by_folder "" "" ALONE)
  if(NOT QUILLBOX_BY_FOLDER)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source OUTPUT_VARIABLE path)
    cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    if(NOT path IN_LIST by_folder_ALONE)
      cmake_path(GET path PARENT_PATH folder)
      string(MAKE_C_IDENTIFIER "in_${folder}" folder) # the target's own folder has no name
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${folder})
    endif()
  endforeach()
endfunction()
