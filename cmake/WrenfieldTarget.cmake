# One place for what every target of ours is compiled with.

# Headers that many files of a kind read are read once for all of them. Files go on including what they use: preset
# package and packaging/lint do without. Only headers of the system stand here: one of ours would reach those that have
# no arrow to its folder.
set(wrenfield_core_headers
    <QByteArray> <QDate> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QSet> <QString> <QStringList>
    <algorithm> <array> <cmath> <cstdint> <functional> <limits> <memory> <optional> <string> <string_view>
    <utility> <vector>)
set(wrenfield_widget_headers
    ${wrenfield_core_headers} <QAccessibleWidget> <QApplication> <QKeyEvent> <QLabel> <QLocale> <QMouseEvent>
    <QPainter> <QPalette> <QPixmap> <QPointer> <QScrollBar> <QWidget>)
set(wrenfield_test_headers
    ${wrenfield_core_headers} <QTemporaryDir> <gtest/gtest.h> <rapidcheck/gtest.h> <sstream> <stdexcept>)
set(wrenfield_widget_test_headers
    ${wrenfield_widget_headers} <QClipboard> <QLineEdit> <QMenu> <QRegularExpression> <QTemporaryDir> <QTest>
    <QWindow> <gtest/gtest.h> <random> <sstream> <stdexcept>)
if(WIN32)
  list(REMOVE_ITEM wrenfield_test_headers <rapidcheck/gtest.h>)
endif()

# Clang makes the sanitizers' runtime a part of the program unless it's told to do as GCC does. What is loaded before the
# program, such as a pinned clock, needs it too early for that.
set(wrenfield_shared_sanitizer "")
if(WRENFIELD_SANITIZERS AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND NOT WRENFIELD_FUZZERS)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so
                  OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  get_filename_component(runtime_folder ${runtime} DIRECTORY)
  set(wrenfield_shared_sanitizer -shared-libasan -Wl,-rpath,${runtime_folder})
endif()

# wrenfield_precompile(<target> <owner> <headers>)
# The owner reads the headers, and all others that are compiled with the same options take over what it has read. With
# other options the compiler refuses what was read, and warns.
function(wrenfield_precompile target owner)
  if(target STREQUAL owner)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

function(wrenfield_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                         -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
                         -Wundef -Wimplicit-fallthrough -Wzero-as-null-pointer-constant)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                             QT_NO_KEYWORDS)
  if(WIN32)
    # Windows 10 and later, and no more of its names than are asked for.
    target_compile_definitions(${target} PRIVATE _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX UNICODE)
  endif()
  if(WRENFIELD_DEVELOPER)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(WRENFIELD_SANITIZERS)
    # Qt's own checks of places in texts and lists find what an address alone doesn't tell.
    target_compile_definitions(${target} PRIVATE QT_FORCE_ASSERTS)
    target_compile_options(${target} PUBLIC -fsanitize=${WRENFIELD_SANITIZERS}
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${WRENFIELD_SANITIZERS})
    target_link_options(${target} PUBLIC ${wrenfield_shared_sanitizer})
  endif()
  if(WRENFIELD_FUZZERS)
    # The fuzzer finds its way by the branches taken in our own code.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(WRENFIELD_COVERAGE)
    # The end of the process is immediate and has to save the counts itself.
    target_compile_definitions(${target} PRIVATE WRENFIELD_COVERAGE)
    target_compile_options(${target} PUBLIC --coverage)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()

# wrenfield_library(<name> SOURCES ... USES ...)
# A folder of src as a static library. Its headers are found by their own name within the folder only, and
# by "<folder>/Header.h" for those that link it: the headers of a folder that a target does not link are
# copied nowhere and on nobody's include path, so an arrow against the picture does not build.
function(wrenfield_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;PRIVATELY" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  set(gate ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${gate})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${gate}/${name} SYMBOLIC)
  target_include_directories(${name} PUBLIC ${gate})
  target_link_libraries(${name} PUBLIC ${ARG_USES} Qt6::Core PRIVATE ${ARG_PRIVATELY})
  wrenfield_compile_options(${name})
  if("Qt6::Widgets" IN_LIST ARG_USES)
    wrenfield_precompile(${name} controls ${wrenfield_widget_headers})
  else()
    wrenfield_precompile(${name} platform ${wrenfield_core_headers})
  endif()
endfunction()

# wrenfield_program(<name> <title> <source> <library>)
# A program that users have. The title is what Windows calls it.
function(wrenfield_program name title source library)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE ${library})
  wrenfield_compile_options(${name})
  if(WIN32)
    wrenfield_resources(${name} ${title})
  endif()
endfunction()

# Tests are compiled more often than they run; what they test keeps its full optimisation. The sanitizers make much code
# of each line, and nothing takes as long as making that code good.
function(wrenfield_test_options target)
  wrenfield_compile_options(${target})
  set(optimisation -O1)
  if(WRENFIELD_SANITIZERS)
    set(optimisation -O0)
  endif()
  target_compile_options(${target} PRIVATE $<$<CONFIG:RelWithDebInfo>:${optimisation} -g1>)
endfunction()

# wrenfield_long_test(<name> <seconds>)
# A test that may take so long is begun early, or it would run alone at the end.
function(wrenfield_long_test name seconds)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds} COST ${seconds})
endfunction()

# wrenfield_busy_test(<name> <seconds>)
# One that computes all the while, as others wait for screens. Where five tests run at a time, it counts as two.
function(wrenfield_busy_test name seconds)
  wrenfield_long_test(${name} ${seconds})
  set_tests_properties(${name} PROPERTIES PROCESSORS 2)
endfunction()

# wrenfield_test_run(<run> <program> <format> <seconds> <tests> ...)
# These tests of a program (patterns as GoogleTest has them, a minus before the first to leave out) as a test of ctest.
function(wrenfield_test_run run program format seconds)
  list(JOIN ARGN ":" tests)
  add_test(NAME ${run} COMMAND ${program} --gtest_filter=${tests})
  wrenfield_busy_test(${run} ${seconds})
  set_tests_properties(${run} PROPERTIES ENVIRONMENT
                       "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;WRENFIELD_FORMAT=${format}")
endfunction()

# wrenfield_test(<name> SOURCES ... USES ... [PARTS <part> <tests> ...] [JET_WITHOUT <tests> ...])
# A program of tests. One that uses widget_test_support has an application with windows, any other one without.
# With PARTS some of its tests run by themselves, as <name>_<part>, and may do so beside the others.
# With JET_WITHOUT its tests run twice: <name> on SQLite files, and <name>_jet on Jet files, but for those that speak of
# what only a SQLite file has (patterns as GoogleTest has them, or NOTHING).
function(wrenfield_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;USES;PARTS;JET_WITHOUT" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 600)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_USES} test_support)
  wrenfield_test_options(${name})
  if("widget_test_support" IN_LIST ARG_USES)
    wrenfield_precompile(${name} widget_test_support)
  else()
    wrenfield_precompile(${name} test_support)
  endif()
  set(formats sqlite)
  if(ARG_JET_WITHOUT)
    list(APPEND formats jet)
  endif()
  foreach(format IN LISTS formats)
    set(end "")
    set(without NOTHING)
    if(format STREQUAL jet)
      set(end _jet)
      set(without ${ARG_JET_WITHOUT})
    endif()
    set(others ${without})
    set(parts ${ARG_PARTS})
    while(parts)
      list(POP_FRONT parts part tests)
      wrenfield_test_run(${name}_${part}${end} ${name} ${format} ${ARG_TIMEOUT} ${tests}-${without})
      list(APPEND others ${tests})
    endwhile()
    wrenfield_test_run(${name}${end} ${name} ${format} ${ARG_TIMEOUT} -${others})
  endforeach()
endfunction()
