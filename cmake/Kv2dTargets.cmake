# What every target of the project has in common: warnings as errors, sanitizers, debug information.

set(kv2d_warnings -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports these in its own library's inlined string code when it optimises.
  list(APPEND kv2d_warnings -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
endif()

# kv2d_defaults(TARGET): the common compile and link settings.
function(kv2d_defaults target)
  target_compile_options(${target} PRIVATE ${kv2d_warnings})
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                                 _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    # Wine's back traces show file and line up to DWARF 4.
    target_compile_options(${target} PRIVATE -gdwarf-4 -fstack-protector-strong)
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
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

# kv2d_library(NAME SOURCES file... [LINKS target...] [INCLUDES dir...]): a static library. The folders of src
# are included by folder and file name ("storage/ini_file.h").
function(kv2d_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS;INCLUDES" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  kv2d_defaults(${name})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${name} PUBLIC ${arg_INCLUDES})
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
endfunction()

# kv2d_test_code(TARGET): compiles quickly. Most of the build's time goes into test code, where neither optimisation
# nor the checks for undefined behaviour find anything that they would not find in the code under test.
function(kv2d_test_code target)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
  if(KV2D_SANITIZE AND NOT KV2D_FUZZ)
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-sanitize=undefined>)
  endif()
endfunction()

# kv2d_test(NAME SOURCES file... [LINKS target...] [DESKTOP]): a GoogleTest program with the common test main,
# each of its cases a CTest test. DESKTOP marks programs that open windows: they share one desktop and its
# focus, so CTest runs them one at a time.
function(kv2d_test name)
  cmake_parse_arguments(arg "DESKTOP" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  kv2d_defaults(${name})
  kv2d_test_code(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} kv2d_test_support)
  set(properties TIMEOUT 120)
  if(arg_DESKTOP)
    list(APPEND properties RESOURCE_LOCK desktop)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()
