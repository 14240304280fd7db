# Pictures of the icons for a platform where the toolkit's reader of drawings cannot be had. Debian's
# librsvg draws them from the same files while the program is built.
find_program(QUILLBOX_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(QUILLBOX_ICOTOOL icotool REQUIRED)

set(QUILLBOX_ICON_FOLDER ${CMAKE_BINARY_DIR}/icons)
file(MAKE_DIRECTORY ${QUILLBOX_ICON_FOLDER})

# 16, 24, 32, 48 and 64 points on screens of one, two and three times the usual density.
set(QUILLBOX_ICON_SIZES 16 24 32 48 64 72 96 128 144 192)
# What the system asks for in menus, lists and folders; the last one is kept compressed.
set(QUILLBOX_ICO_SIZES 16 24 32 48 64)
set(QUILLBOX_ICO_LARGEST 256)

# quillbox_draw_icon(DRAWING PICTURES SIZE...): PICTURES become the files that the build makes.
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

# The pictures become part of the program, which finds them by the sizes.
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

# quillbox_make_ico(DRAWING): NAME.ico in the folder of the icons, as the system and the installer
# take it.
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
