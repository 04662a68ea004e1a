# Writes the header OUTPUT, which names the commit that the sources in SOURCE are of, or "unknown" where git does not know:
# in a tarball, or in one that was unpacked below somebody else's checkout. An unchanged header is not written anew.
cmake_minimum_required(VERSION 3.25)

set(commit unknown)
set(git git -C ${SOURCE})
set(ENV{GIT_OPTIONAL_LOCKS} 0)
execute_process(COMMAND ${git} rev-parse --show-toplevel OUTPUT_VARIABLE checkout OUTPUT_STRIP_TRAILING_WHITESPACE
                ERROR_QUIET RESULT_VARIABLE result)
if(result STREQUAL "0")
  file(REAL_PATH ${SOURCE} source)
  file(REAL_PATH ${checkout} checkout)
endif()
if(checkout STREQUAL source)
  execute_process(COMMAND ${git} describe --always --dirty --exclude=* --abbrev=12 OUTPUT_VARIABLE described
                  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE result)
  if(result STREQUAL "0")
    set(commit ${described})
  endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/commit.h.in ${OUTPUT} @ONLY)
