# The pages that go into the development package, in the folders that they have here, so that their links hold.

# qva_install_pages(<folder of the package> <component> <file>...): links to what stays in the checkout become their text.
function(qva_install_pages destination component)
  foreach(page IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${page})
    file(READ ${PROJECT_SOURCE_DIR}/${page} text)
    string(REGEX REPLACE "\\[([^]\n]*)\\]\\((\\.\\./)*(CONTRIBUTING\\.md|platform|tests)[^)\n]*\\)" "\\1" text "${text}")
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/package/pages/${page} CONTENT "${text}" @ONLY)
    cmake_path(GET page PARENT_PATH folder)
    install(FILES ${PROJECT_BINARY_DIR}/package/pages/${page} DESTINATION ${destination}/${folder}
            COMPONENT ${component} EXCLUDE_FROM_ALL)
  endforeach()
endfunction()
