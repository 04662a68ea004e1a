# Compares the library's objects in the builds FIRST and SECOND. Their debug information alone may differ, in where the
# platform's headers are.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

# hash_object(<build> <object> <result>): of the object without debug information.
function(hash_object build object result)
  execute_process(COMMAND ${OBJCOPY} --strip-debug ${build}/${object} ${WORK}/stripped.o COMMAND_ERROR_IS_FATAL ANY)
  file(SHA256 ${WORK}/stripped.o hash)
  set(${result} ${hash} PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE objects RELATIVE ${FIRST} ${FIRST}/src/*.o)
foreach(object IN LISTS objects)
  hash_object(${FIRST} ${object} first)
  hash_object(${SECOND} ${object} second)
  if(NOT first STREQUAL second)
    list(APPEND different ${object})
  endif()
endforeach()

list(LENGTH objects count)
if(different OR count LESS 40)
  message(FATAL_ERROR "${count} objects; these differ: ${different}")
endif()
