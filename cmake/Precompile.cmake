# nesk_precompile(TARGET KIND HEADER ... | REUSE_FROM OTHER): precompiles headers that most sources of a target include
# and that take longer to compile than the sources themselves. Does so only if NESK_PRECOMPILE names the kind. The
# development build precompiles only for the tests, which proves that every other file includes the headers it needs.
function(nesk_precompile target kind)
  if(NOT kind IN_LIST NESK_PRECOMPILE)
    return()
  endif()
  if("${ARGV2}" STREQUAL REUSE_FROM)
    target_precompile_headers(${target} REUSE_FROM ${ARGV3})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
