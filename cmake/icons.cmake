# Pictures of the icons for a platform without the toolkit's SVG reader. Debian's librsvg renders
# them from the same files at build time.
find_program(QUILLBOX_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(QUILLBOX_ICOTOOL icotool REQUIRED)

set(QUILLBOX_ICON_FOLDER ${CMAKE_BINARY_DIR}/icons)
file(MAKE_DIRECTORY ${QUILLBOX_ICON_FOLDER})

# 16, 24, 32, 48 and 64 points on screens of one, two and three times the usual density.
set(QUILLBOX_ICON_SIZES 16 24 32 48 64 72 96 128 144 192)
# The sizes that the system uses in menus, lists and folders; the last one is stored compressed.
set(QUILLBOX_ICO_SIZES 16 24 32 48 64)
set(QUILLBOX_ICO_LARGEST 256)

# quillbox_draw_icon(DRAWING PICTURES SIZE...): PICTURES is set to the files that the build creates.
function(quillbox_draw_icon drawing pictures)
  get_filename_component(name ${drawing} NAME_WLE)
  set(made "")
  set(commands "")
  foreach(size IN LISTS ARGN)
    set(picture ${QUILLBOX_ICON_FOLDER}/${name}-${size}.png)
    list(APPEND made ${picture})
    list(APPEND commands COMMAND ${QUILLBOX_RSVG_CONVERT} -w ${size} -h ${size} -o ${picture}
                ${drawing})
  endforeach()
  add_custom_command(OUTPUT ${made} ${commands} DEPENDS ${drawing} VERBATIM)
  set(${pictures} ${made} PARENT_SCOPE)
endfunction()

# The pictures are built into the program, which finds them by their sizes.
function(quillbox_add_icon_pictures target)
  file(GLOB drawings CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/icons/*.svg)
  set(all "")
  foreach(drawing IN LISTS drawings)
    quillbox_draw_icon(${drawing} pictures ${QUILLBOX_ICON_SIZES})
    list(APPEND all ${pictures})
  endforeach()
  qt_add_resources(${target} icons PREFIX /icons BASE ${QUILLBOX_ICON_FOLDER} FILES ${all})
  list(JOIN QUILLBOX_ICON_SIZES "," sizes)
  target_compile_definitions(${target} PUBLIC QUILLBOX_ICON_SIZES=${sizes})
endfunction()

# quillbox_make_ico(DRAWING): NAME.ico in the folder of the icons, in the form that the system and
# the installer need.
function(quillbox_make_ico drawing)
  get_filename_component(name ${drawing} NAME_WLE)
  set(small "")
  set(commands "")
  foreach(size IN LISTS QUILLBOX_ICO_SIZES QUILLBOX_ICO_LARGEST)
    set(picture ${QUILLBOX_ICON_FOLDER}/${name}-ico-${size}.png)
    list(APPEND commands COMMAND ${QUILLBOX_RSVG_CONVERT} -w ${size} -h ${size} -o ${picture}
                ${drawing})
    if(NOT size EQUAL QUILLBOX_ICO_LARGEST)
      list(APPEND small ${picture})
    endif()
  endforeach()
  add_custom_command(
    OUTPUT ${QUILLBOX_ICON_FOLDER}/${name}.ico ${commands}
    COMMAND ${QUILLBOX_ICOTOOL} -c -o ${QUILLBOX_ICON_FOLDER}/${name}.ico ${small} -r
            ${QUILLBOX_ICON_FOLDER}/${name}-ico-${QUILLBOX_ICO_LARGEST}.png
    DEPENDS ${drawing}
    VERBATIM)
endfunction()
