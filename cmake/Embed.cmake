# embed_text(TARGET SYMBOL FILE): the file's text as `extern const std::string_view SYMBOL`, which the target's sources
# declare for themselves.
set(EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/EmbedScript.cmake)
function(embed_text target symbol file)
  get_filename_component(path ${file} ABSOLUTE)
  set(written ${CMAKE_CURRENT_BINARY_DIR}/embedded_${symbol}.cpp)
  add_custom_command(
    OUTPUT ${written}
    COMMAND ${CMAKE_COMMAND} -D FILE=${path} -D SYMBOL=${symbol} -D WRITTEN=${written} -P ${EMBED_SCRIPT}
    DEPENDS ${path} ${EMBED_SCRIPT}
    VERBATIM)
  add_library(embedded_${symbol} STATIC ${written})
  target_link_libraries(${target} PUBLIC embedded_${symbol})
endfunction()
