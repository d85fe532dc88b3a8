# What every target of the project has in common: warnings as errors, sanitizers, debug information.

set(kv2d_warnings -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A fixture without a name outside its file is no mistake: the files that a unity build takes together look like headers.
  list(APPEND kv2d_warnings -Wno-subobject-linkage)
  # GCC 12 reports these in its own library's inlined string code when it optimises.
  list(APPEND kv2d_warnings -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
  # A tenth of its time goes into collecting garbage if it may not use a gigabyte of memory.
  set(kv2d_compiler_memory --param=ggc-min-heapsize=1048576)
endif()

# kv2d_defaults(TARGET): the common compile and link settings.
function(kv2d_defaults target)
  target_compile_options(${target} PRIVATE ${kv2d_warnings} ${kv2d_compiler_memory})
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                                 _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
    # Sections that begin at a page of the file are mapped by Wine; others it reads whole with every start, the debug
    # information too.
    target_link_options(${target} PRIVATE -Wl,--file-alignment,4096)
    # The protector's functions, linked in so that no further library has to lie beside the programs.
    target_link_libraries(${target} PRIVATE -l:libssp.a)
  endif()
  if(KV2D_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined
                                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  elseif(KV2D_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# kv2d_precompiled(NAME HEADERS header... [LINKS target...]): an object library that precompiles the headers, for
# targets with the same settings to reuse: a third to two thirds of a file's compile time are these headers. The fuzz
# preset compiles without, so that a file with a missing include is found.
function(kv2d_precompiled name)
  cmake_parse_arguments(arg "" "" "HEADERS;LINKS" ${ARGN})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} OBJECT ${source})
  kv2d_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINKS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# kv2d_reuse(TARGET PRECOMPILED): compiles the target with the headers that a kv2d_precompiled library has.
function(kv2d_reuse target precompiled)
  if(KV2D_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${precompiled})
  endif()
endfunction()

# kv2d_library(NAME SOURCES file... [LINKS target...] [INCLUDES dir...] [WINDOWS]): a static library. The folders of src
# are included by folder and file name ("storage/ini_file.h"). WINDOWS marks those that include the system's headers.
function(kv2d_library name)
  cmake_parse_arguments(arg "WINDOWS" "" "SOURCES;LINKS;INCLUDES" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  kv2d_defaults(${name})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  if(arg_WINDOWS)
    kv2d_reuse(${name} kv2d_windows_headers)
  else()
    kv2d_reuse(${name} kv2d_headers)
  endif()
  target_include_directories(${name} PUBLIC ${arg_INCLUDES})
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
endfunction()

# kv2d_test_code(TARGET): compiles quickly. Most of the build's time goes into test code, where neither optimisation
# nor the checks for undefined behaviour find anything that they would not find in the code under test. On Windows
# it has no debug information either: GoogleTest tells its lines, and back traces are for the code under test. There it
# is optimised a little: without, it has four times as many sections, and the linker's time grows with their square.
function(kv2d_test_code target)
  if(WIN32)
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O1> $<$<COMPILE_LANGUAGE:CXX>:-g0>)
  else()
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
  endif()
  if(KV2D_SANITIZE AND NOT KV2D_FUZZ)
    target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
  endif()
endfunction()

# kv2d_test(NAME SOURCES file... [LINKS target...] [DESKTOP | SECOND_DESKTOP]): a GoogleTest program with the common
# test main, each of its cases a CTest test. DESKTOP marks programs that open windows: they share one desktop and its
# focus, so CTest runs them one at a time. The programs marked SECOND_DESKTOP share another one, in the session beside
# (see cmake/wine-session), and the first if there is none. A program without windows is one CTest test on Windows: its
# cases have a process each in the native suite, and under Wine the starts alone would take minutes.
function(kv2d_test name)
  cmake_parse_arguments(arg "DESKTOP;SECOND_DESKTOP" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  kv2d_defaults(${name})
  kv2d_test_code(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} kv2d_test_support)
  set(properties TIMEOUT 300)
  set(headers kv2d_test_headers)
  if(arg_DESKTOP OR arg_SECOND_DESKTOP)
    set(headers kv2d_window_test_headers)
  endif()
  if(arg_DESKTOP)
    list(APPEND properties RESOURCE_LOCK desktop)
  endif()
  kv2d_reuse(${name} ${headers})
  if(arg_SECOND_DESKTOP AND NOT CMAKE_HOST_WIN32)
    set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR "${CMAKE_SOURCE_DIR}/cmake/on-second-desktop")
  endif()
  if(WIN32 AND NOT arg_DESKTOP AND NOT arg_SECOND_DESKTOP)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ${properties} FAIL_REGULAR_EXPRESSION "Running 0 tests")
    return()
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_LIST ${name}_cases
                       PROPERTIES ${properties})
  if(arg_SECOND_DESKTOP)
    # Read by ctest when it starts, after the cases: only then is it known which desktops there are.
    set(script "${CMAKE_CURRENT_BINARY_DIR}/${name}_desktop.cmake")
    file(CONFIGURE OUTPUT "${script}" @ONLY CONTENT [[
if(DEFINED ENV{KV2D_BESIDE_DISPLAY})
  set(lock second_desktop)
else()
  set(lock desktop)
endif()
set_tests_properties(${@name@_cases} PROPERTIES RESOURCE_LOCK ${lock})
]])
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
  endif()
endfunction()
