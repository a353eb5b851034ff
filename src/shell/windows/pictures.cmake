# The toolkit draws no pictures of lines here, so those of the wizard become pictures of dots: in the sizes of windows'
# icons, and in those of the warning sign on displays of 100 to 300 per cent.
set(sides 16 32 48 100 125 128 150 175 200 250 300)
list(JOIN sides , sides_as_code)

set(list "<RCC><qresource prefix=\"/pictures\">\n")
foreach(name IN ITEMS warning wrenfield-wizard)
  set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/pictures/${name}.svg)
  foreach(side IN LISTS sides)
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/${name}-${side}.png)
    wrenfield_draw(${drawing} ${side} ${picture})
    list(APPEND pictures ${picture})
    string(APPEND list "<file>${name}-${side}.png</file>\n")
  endforeach()
endforeach()
string(APPEND list "</qresource></RCC>\n")
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/pictures.qrc CONTENT "${list}")
set_source_files_properties(windows/DrawPicture.cpp PROPERTIES
                            COMPILE_DEFINITIONS WRENFIELD_PICTURE_SIDES=${sides_as_code})
set(picture_list ${CMAKE_CURRENT_BINARY_DIR}/pictures.qrc)
