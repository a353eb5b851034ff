# What tests and fuzz targets make whole files with, and look at them with.
set(jet ${CMAKE_CURRENT_LIST_DIR})
add_library(jet_files STATIC ${jet}/FileCheck.cpp ${jet}/ModelDisk.cpp ${jet}/SomeDatabase.cpp
            ${jet}/filecheck/Definition.cpp ${jet}/filecheck/Header.cpp ${jet}/filecheck/Image.cpp
            ${jet}/filecheck/Keys.cpp ${jet}/filecheck/LongPieces.cpp ${jet}/filecheck/PageOwners.cpp
            ${jet}/filecheck/Rows.cpp ${jet}/filecheck/TextKeys.cpp ${jet}/filecheck/Texts.cpp
            ${jet}/filecheck/Trees.cpp)
target_link_libraries(jet_files PUBLIC engine)
wrenfield_compile_options(jet_files)
if(WRENFIELD_FUZZERS)
  # A fuzzer is to find its way through the engine, not through what looks at the engine's work.
  target_compile_options(jet_files PRIVATE -fno-sanitize=fuzzer-no-link)
endif()
