# nesk_precompile(TARGET KIND HEADER ... | REUSE_FROM OTHER): headers that most sources of a target include, and that take longer to compile
# than the sources themselves. They are compiled once when NESK_PRECOMPILE names the kind. The development build does so
# for the tests alone, so that every other file is known to include what it needs.
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
