# What a program for Windows brings along beside its code: the icon, the version and the manifest. Its pictures of lines
# become pictures of dots when it is built.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(wrenfield_resource_folder ${CMAKE_CURRENT_LIST_DIR}/../packaging/windows)
set(wrenfield_icon ${CMAKE_BINARY_DIR}/icon/wrenfield.ico)

# wrenfield_draw(<drawing> <side> <picture>)
function(wrenfield_draw drawing side picture)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} --width ${side} --height ${side} --output ${picture} ${drawing}
    DEPENDS ${drawing} VERBATIM)
endfunction()

set(drawing ${CMAKE_CURRENT_LIST_DIR}/../src/shell/pictures/wrenfield-wizard.svg)
set(pictures)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/icon)
foreach(side IN ITEMS 16 20 24 32 40 48 64 256)
  set(picture ${CMAKE_BINARY_DIR}/icon/${side}.png)
  wrenfield_draw(${drawing} ${side} ${picture})
  list(APPEND pictures ${picture})
endforeach()
# The largest one stays packed, as icons of that size are.
list(POP_BACK pictures largest)
add_custom_command(OUTPUT ${wrenfield_icon}
  COMMAND ${ICOTOOL} --create --output=${wrenfield_icon} ${pictures} --raw=${largest}
  DEPENDS ${pictures} ${largest} VERBATIM)
add_custom_target(wrenfield_icon DEPENDS ${wrenfield_icon})

# wrenfield_resources(<name> <title>)
function(wrenfield_resources name title)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  set(manifest ${wrenfield_resource_folder}/program.manifest)
  string(REPLACE . , version_numbers ${PROJECT_VERSION}.0)
  configure_file(${wrenfield_resource_folder}/program.rc.in ${script} @ONLY)
  set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS "${wrenfield_icon};${manifest}")
  target_sources(${name} PRIVATE ${script})
  add_dependencies(${name} wrenfield_icon)
endfunction()
