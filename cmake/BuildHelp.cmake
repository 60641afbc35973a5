# Compiles the help: cmake -DCHMCMD=compiler -DSOURCE=folder -DOUTPUT=file.chm -DWORK=folder -P BuildHelp.cmake
#
# The compiler writes its output next to its project file, so it works on a copy of the sources.
cmake_minimum_required(VERSION 3.25)

foreach(name CHMCMD SOURCE OUTPUT WORK)
  if(NOT ${name})
    message(FATAL_ERROR "BuildHelp.cmake: ${name} is not set")
  endif()
endforeach()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${SOURCE}/ DESTINATION ${WORK})

cmake_path(GET OUTPUT STEM name)
execute_process(COMMAND ${CHMCMD} ${name}.hhp WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE result OUTPUT_VARIABLE log ERROR_VARIABLE log)
if(NOT result EQUAL 0 OR NOT EXISTS ${WORK}/${name}.chm)
  message(FATAL_ERROR "${CHMCMD} failed (${result}):\n${log}")
endif()

# The work folder may be on another disk, so copy first and then rename: the help file is never incomplete.
file(COPY_FILE ${WORK}/${name}.chm ${OUTPUT}.new)
file(RENAME ${OUTPUT}.new ${OUTPUT})
