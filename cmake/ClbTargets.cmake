# Compile options that every target of the project shares, and the two helpers that make targets.

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
    -Wno-array-bounds)
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

# clb_library(NAME [folder ...] [LINK library ...]): one static library from the sources of the current
# folder, named clb_NAME; the folders after the name are the rungs above that it may use.
function(clb_library name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(clb_${name} ${CLB_LIBRARIES} ${sources})
  set_target_properties(clb_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(clb_${name} PUBLIC clb_options)
  foreach(folder IN LISTS ARG_UNPARSED_ARGUMENTS)
    target_link_libraries(clb_${name} PUBLIC clb_${folder})
  endforeach()
  target_link_libraries(clb_${name} PUBLIC ${ARG_LINK})
endfunction()
