# Builds the files into a target below their names in the project, as qt_add_resources does, but without
# compiling their bytes, which takes longer than any source file. Whoever reads them calls
# Q_INIT_RESOURCE(name) first, or the linker leaves them out:
#   quillbox_add_large_resources(target name FILES files...)
function(quillbox_add_large_resources target name)
  cmake_parse_arguments(PARSE_ARGV 2 resources "" "" FILES)
  set(list "<RCC><qresource>\n")
  foreach(file IN LISTS resources_FILES)
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE alias)
    string(APPEND list "<file alias=\"${alias}\">${file}</file>\n")
  endforeach()
  string(APPEND list "</qresource></RCC>\n")
  set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
  file(CONFIGURE OUTPUT ${qrc} CONTENT "${list}" @ONLY)
  qt_add_big_resources(objects ${qrc})
  # The bytes replace others in the compiled object, which has none where the linker compiles.
  set_target_properties(rcc_object_${name} PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
  target_sources(${target} PRIVATE ${objects})
endfunction()
