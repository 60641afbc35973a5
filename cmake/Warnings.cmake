# Warnings that every target of ours is built with.
function(nesk_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Wcast-align -Woverloaded-virtual -Wconversion -Wsign-conversion -Wformat=2)
  if(NESK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
