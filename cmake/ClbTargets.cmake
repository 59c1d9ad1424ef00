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
  # GCC 12 wrongly reports these inside its own library at -O2 and -O3.
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
  # ccache caches a compilation with precompiled headers only if it may ignore the macros that those used.
  list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(clb_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()

# clb_headers(NAME header ... [LINK library ...]): precompiles headers of other libraries for the targets that
# clb_precompile names. Never headers of ours: they change. A source still includes what it needs; the preset
# headless and ./lint, which precompile nothing, fail otherwise.
function(clb_headers name)
  if(NOT CLB_PCH)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  # CMake precompiles headers for a target only, and a target needs a source.
  file(CONFIGURE OUTPUT clb_headers_${name}.cpp CONTENT "")
  add_library(clb_headers_${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/clb_headers_${name}.cpp")
  target_link_libraries(clb_headers_${name} PRIVATE clb_options ${ARG_LINK})
  target_precompile_headers(clb_headers_${name} PRIVATE ${ARG_UNPARSED_ARGUMENTS})
endfunction()

# clb_precompile(TARGET NAME): compiles the target's sources with the headers of clb_headers(NAME ...). Both
# must have the same compile options. Definitions may differ if the headers do not use them.
function(clb_precompile target name)
  if(CLB_PCH)
    target_precompile_headers(${target} REUSE_FROM clb_headers_${name})
  endif()
endfunction()

set(CLB_STANDARD_HEADERS <algorithm> <filesystem> <fstream> <functional> <iostream> <map> <memory>
  <optional> <sstream> <string> <variant> <vector>)
clb_headers(standard ${CLB_STANDARD_HEADERS})

# clb_library(NAME [folder ...] [HEADERS name] [LINK library ...]): one static library from the sources of
# the current folder, named clb_NAME. It may use the folders after the name. HEADERS names the clb_headers to
# precompile, instead of those of the standard library.
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
