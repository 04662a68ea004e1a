# Installs the platform of BUILD below SEAM, copies SOURCE without its platform there, and builds the library with
# the tests of tests/library and of the platform's contract. What did not change since the last time is not compiled again.

# run(<command>...): shows what the command printed when it fails.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\nended with ${result}:\n${output}")
  endif()
endfunction()

# Headers keep the times of their sources, so the compiled objects stay valid.
file(REMOVE_RECURSE ${SEAM}/platform ${SEAM}/source)
foreach(component IN ITEMS platform platform_development)
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${SEAM}/platform --component ${component})
endforeach()
foreach(part IN ITEMS CMakeLists.txt cmake include src tests)
  file(COPY ${SOURCE}/${part} DESTINATION ${SEAM}/source)
endforeach()

run(${CMAKE_COMMAND} -S ${SEAM}/source -B ${SEAM}/build -G Ninja -C ${SEAM}/hostCache.cmake)
run(${CMAKE_COMMAND} --build ${SEAM}/build --target qvAnnotationLegacy tests/library/all
    tests/platform/contract/all)
