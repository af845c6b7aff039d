# The functions with which every folder declares its targets.

include(CMakeParseArguments)

get_target_property(moc Qt5::moc IMPORTED_LOCATION)
set(ROOM_MOC ${CMAKE_BINARY_DIR}/moc-alone)
configure_file(${CMAKE_CURRENT_LIST_DIR}/moc-alone.in ${ROOM_MOC} @ONLY)

add_library(room_options INTERFACE)
target_compile_features(room_options INTERFACE cxx_std_17)
target_compile_definitions(room_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
target_compile_options(room_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                       $<$<BOOL:${ROOM_WARNINGS_AS_ERRORS}>:-Werror>)

# room_library(NAME SOURCES ... [PUBLIC ...] [PRIVATE ...] [NO_QT_GENERATORS])
#
# A static library whose folder is its include folder: the headers of a library are visible only to those
# that link it, so an include against the layering does not compile.
function(room_library name)
  cmake_parse_arguments(ARG "NO_QT_GENERATORS" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE room_options ${ARG_PRIVATE})
  room_common_properties(${name})
  room_use_common_headers(${name})
  if(NOT ARG_NO_QT_GENERATORS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOMOC_EXECUTABLE ${ROOM_MOC})
  endif()
endfunction()

# room_common_headers(NAME LIBRARY HEADER ...): precompiles what most sources of product and bench that link this library
# of Qt include. The clang presets read many sources together and do without.
function(room_common_headers name library)
  set(source ${CMAKE_BINARY_DIR}/common_headers/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE room_options ${library})
  room_common_properties(${name})
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# room_use_common_headers(TARGET): those of the largest library of Qt that it links.
function(room_use_common_headers target)
  if(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${CMAKE_SOURCE_DIR}/tests" OR NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    return()
  endif()
  room_links(${target} found)
  foreach(library Widgets Core)
    if(Qt5::${library} IN_LIST found)
      target_precompile_headers(${target} REUSE_FROM headers_of_${library})
      return()
    endif()
  endforeach()
endfunction()

# room_links(TARGET VARIABLE): all that a target links, however indirectly.
function(room_links target variable)
  set(found ${${variable}})
  foreach(property LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
    get_target_property(links ${target} ${property})
    foreach(link ${links})
      string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" link "${link}")
      if(TARGET ${link} AND NOT link IN_LIST found)
        list(APPEND found ${link})
        room_links(${link} found)
      endif()
    endforeach()
  endforeach()
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# room_exact_arithmetic(SOURCE ...): computed as it is written, without fused multiplication, and optimised in every
# build.
function(room_exact_arithmetic)
  set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "-ffp-contract=off;-fno-math-errno;-O3"
                              SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# room_alone(SOURCE ...): these are not put together with others, which have names of their own for what is known in one
# source only.
function(room_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# What all targets have in common. With ROOM_SANITIZERS, a list of compiler options, the product and the bench are
# instrumented, with ROOM_COVERAGE the product alone; the tests are linked with what that needs. The tests' own code
# is not: so its objects are the same in every such build, and a compiler cache makes them only once.
function(room_common_properties name)
  if(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${CMAKE_SOURCE_DIR}/tests")
    # Tests spell texts as they are; the product says where they come from.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1> -UQT_NO_CAST_FROM_ASCII)
  else()
    target_compile_options(${name} PRIVATE ${ROOM_SANITIZERS})
    if(NOT CMAKE_CURRENT_SOURCE_DIR MATCHES "^${CMAKE_SOURCE_DIR}/bench")
      target_compile_options(${name} PRIVATE ${ROOM_COVERAGE})
    endif()
  endif()
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                        VISIBILITY_INLINES_HIDDEN ON CXX_EXTENSIONS OFF)
endfunction()

# room_executable(NAME SOURCES ... LINKS ...)
function(room_executable name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE room_options ${ARG_LINKS})
  room_common_properties(${name})
  room_use_common_headers(${name})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOMOC_EXECUTABLE ${ROOM_MOC})
endfunction()

# room_use_test_headers(TARGET ...): what testlib has precompiled serves these targets, too. The compiler refuses it
# when their definitions differ in anything that the headers ask for.
function(room_use_test_headers)
  foreach(target ${ARGN})
    target_precompile_headers(${target} REUSE_FROM testlib)
    # Often empty, and then reading the headers would be all the work.
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp
                                PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  endforeach()
endfunction()

# room_put_together(TARGET): up to eight sources are compiled as one, since most of the time goes into what the headers
# bring along and into the same templates again and again.
function(room_put_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  # A type of an included source would seem to be one of a header, which others could know by another name.
  target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
endfunction()

# room_test(NAME SOURCES ... LINKS ... [WITHOUT_DISPLAY] [TIMEOUT seconds] [SECONDS seconds]
#           [COMMA class|class::function ...] [GERMAN class|class::function ...] [OPENGL_WITH_COMMA_ONLY])
#
# One test executable, run twice: in the C locale and in one with a decimal comma. Unless
# WITHOUT_DISPLAY is given it runs on an X server of its own, so that tests can run side by side. With COMMA the second
# run is of these classes and functions alone: for the others a locale changes nothing. With GERMAN a third run is of
# these classes and functions as a German has them before a fine screen: comma, translation and a scale of 2 at once.
# With OPENGL_WITH_COMMA_ONLY the first run is on a platform without OpenGL: for what opens windows again and again, whose
# pictures are not what it looks at; with the sanitizers the second run, too. Where the second run is of all classes, the
# sanitizers leave out the first, which is labelled for it.
# SECONDS says of a long run how long it is: the longest begin first, so that none of them is left over at the end.
function(room_test name)
  cmake_parse_arguments(ARG "WITHOUT_DISPLAY;OPENGL_WITH_COMMA_ONLY" "TIMEOUT;SECONDS" "SOURCES;LINKS;COMMA;GERMAN" ${ARGN})
  set(target test_${name})
  if(ARG_WITHOUT_DISPLAY)
    set(main testmain_core)
    set(launcher)
  else()
    set(main testmain_gui)
    set(launcher ${CMAKE_SOURCE_DIR}/cmake/with-display)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  room_executable(${target} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS} ${main} testlib Qt5::Test)
  room_use_test_headers(${target})
  room_put_together(${target})
  add_test(NAME ${name} COMMAND ${launcher} $<TARGET_FILE:${target}>)
  set(platform)
  if(ARG_OPENGL_WITH_COMMA_ONLY)
    set(platform QT_XCB_GL_INTEGRATION=none)
  endif()
  room_test_environment(${name} ${ARG_TIMEOUT} LC_ALL=C.UTF-8 ${platform})
  if(NOT ARG_COMMA)
    set_tests_properties(${name} PROPERTIES LABELS enough_with_comma)
  endif()
  if(NOT ROOM_SANITIZERS)
    set(platform)
  endif()
  list(JOIN ARG_COMMA " " comma)
  add_test(NAME ${name}.comma COMMAND ${launcher} $<TARGET_FILE:${target}>)
  room_test_environment(${name}.comma ${ARG_TIMEOUT}
    LOCPATH=${ROOM_LOCALE_PATH} LC_ALL=de_DE.UTF-8 ROOM_EXPECT_DECIMAL_COMMA=1 "ROOM_TEST_CLASS=${comma}" ${platform})
  if(ARG_SECONDS)
    set_tests_properties(${name} ${name}.comma PROPERTIES COST ${ARG_SECONDS})
  endif()
  if(ARG_GERMAN)
    list(JOIN ARG_GERMAN " " german)
    add_test(NAME ${name}.german COMMAND ${launcher} $<TARGET_FILE:${target}>)
    room_test_environment(${name}.german ${ARG_TIMEOUT}
      LOCPATH=${ROOM_LOCALE_PATH} LC_ALL=de_DE.UTF-8 ROOM_EXPECT_DECIMAL_COMMA=1
      ROOM_TEST_LANGUAGE=de QT_SCALE_FACTOR=2 ROOM_SCREEN=3200x2400x24 "ROOM_TEST_CLASS=${german}")
    add_dependencies(${target} translations bench_translations)
  endif()
endfunction()

# room_test_environment(NAME SECONDS VARIABLE=VALUE ...): in what a run takes place, besides these variables.
function(room_test_environment name timeout)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout})
  set_property(TEST ${name} PROPERTY ENVIRONMENT
    ${ARGN}
    # A function may take as long as its program.
    QTEST_FUNCTION_TIMEOUT=${timeout}000
    QT_LOGGING_RULES=qt.qpa.*=false QT_ACCESSIBILITY=0 LIBGL_ALWAYS_SOFTWARE=1
    LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan-suppressions:print_suppressions=0
    # Without it the search for leaks itself crashes now and then, at the end of programs whose threads have drawn.
    ASAN_OPTIONS=intercept_tls_get_addr=0
    UBSAN_OPTIONS=print_stacktrace=1
    TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/tsan-suppressions)
endfunction()
