# Carries files in a program.

add_executable(clb_embed "${CMAKE_SOURCE_DIR}/cmake/tool/Embed.cpp")
target_link_libraries(clb_embed PRIVATE clb_options)
set_target_properties(clb_embed PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tool")

# clb_embed(TARGET FUNCTION FILE ...): adds to the target the function `EmbeddedFiles clb::FUNCTION()`
# (base/EmbeddedFiles.h), which returns the files with the bytes that they have when the target is built.
function(clb_embed target function)
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp")
  add_custom_command(OUTPUT "${source}"
    COMMAND clb_embed "${source}" ${function} ${ARGN}
    DEPENDS clb_embed ${ARGN}
    COMMENT "Embedding ${function}")
  target_sources(${target} PRIVATE "${source}")
endfunction()
