# Compile options that every target of the project shares, and the helpers that make targets.

add_library(clb_options INTERFACE)
target_include_directories(clb_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(clb_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wnull-dereference -Wimplicit-fallthrough)
if(CLB_WERROR)
  target_compile_options(clb_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports these inside its own library at -O2 and -O3 without cause.
  target_compile_options(clb_options INTERFACE
    -Wno-null-dereference -Wno-restrict -Wno-maybe-uninitialized -Wno-stringop-overflow
    -Wno-stringop-overread -Wno-array-bounds)
endif()
if(CLB_SANITIZE)
  target_compile_options(clb_options INTERFACE
    -fsanitize=${CLB_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(clb_options INTERFACE -fsanitize=${CLB_SANITIZE})
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT CLB_SANITIZE)
  target_compile_options(clb_options INTERFACE -fstack-protector-strong -fPIE)
  target_compile_definitions(clb_options INTERFACE _FORTIFY_SOURCE=2)
  target_link_options(clb_options INTERFACE -pie -Wl,-z,relro,-z,now)
endif()

if(CLB_PCH AND CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache")
  # It keeps nothing of a compilation with precompiled headers unless it is told not to mind the macros that
  # they may have seen.
  list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(clb_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()

# clb_headers(NAME header ... [LINK library ...]): headers of other libraries, to be parsed once for all
# targets that clb_precompile names. Never headers of ours: they change, and a source includes by itself what
# it needs; the preset headless, which has no CLB_PCH, fails when it does not.
function(clb_headers name)
  if(NOT CLB_PCH)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  # Headers are precompiled by way of a target, and a target has a source.
  file(CONFIGURE OUTPUT clb_headers_${name}.cpp CONTENT "")
  add_library(clb_headers_${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/clb_headers_${name}.cpp")
  target_link_libraries(clb_headers_${name} PRIVATE clb_options ${ARG_LINK})
  target_precompile_headers(clb_headers_${name} PRIVATE ${ARG_UNPARSED_ARGUMENTS})
endfunction()

# clb_precompile(TARGET NAME): the target's sources take the headers of clb_headers(NAME ...), which must
# have had the target's compile options; definitions may differ where the headers do not use them.
function(clb_precompile target name)
  if(CLB_PCH)
    target_precompile_headers(${target} REUSE_FROM clb_headers_${name})
  endif()
endfunction()

set(CLB_STANDARD_HEADERS <algorithm> <filesystem> <fstream> <functional> <iostream> <map> <memory>
  <optional> <sstream> <string> <variant> <vector>)
clb_headers(standard ${CLB_STANDARD_HEADERS})

# clb_library(NAME [folder ...] [HEADERS name] [LINK library ...]): one static library from the sources of
# the current folder, named clb_NAME; the folders after the name are the rungs above that it may use. HEADERS
# are those of clb_headers to precompile, instead of the standard library's.
function(clb_library name)
  cmake_parse_arguments(ARG "" "HEADERS" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(clb_${name} ${CLB_LIBRARIES} ${sources})
  set_target_properties(clb_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(clb_${name} PUBLIC clb_options)
  foreach(folder IN LISTS ARG_UNPARSED_ARGUMENTS)
    target_link_libraries(clb_${name} PUBLIC clb_${folder})
  endforeach()
  target_link_libraries(clb_${name} PUBLIC ${ARG_LINK})
  if(NOT ARG_HEADERS)
    set(ARG_HEADERS standard)
  endif()
  clb_precompile(clb_${name} ${ARG_HEADERS})
endfunction()
