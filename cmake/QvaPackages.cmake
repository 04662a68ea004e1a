# Debian packages: `cpack` makes the library's, the toolkit's, the developer's and the tool's from the installed components.
# With SOURCE_DATE_EPOCH set, the same sources give the same packages.

if(NOT QVA_PLATFORM STREQUAL "bundled" OR NOT QVA_BUILD_TOOL)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qvannotationlegacy)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_VENDOR "qvAnnotationLegacy project")
set(CPACK_PACKAGE_CONTACT "qvAnnotationLegacy project <maintainers@qvannotationlegacy.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/folderModes.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The packages' own libraries are not installed while they are packed.
foreach(target IN LISTS platform_targets ITEMS qvAnnotationLegacy qvAnnotationToolkit)
  get_target_property(folder ${target} BINARY_DIR)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()

# qva_package(<group> NAME <package> SECTION <section> SUMMARY <text> DESCRIPTION <text> COMPONENTS ...
#             [DEPENDS <packages>] [RECOMMENDS <packages>])
# One package out of some components. Every package carries the copyright and the changelog; `cmake --install` alone
# leaves them out.
macro(qva_package group)
  cmake_parse_arguments(arg "" "NAME;SECTION;SUMMARY;DESCRIPTION;DEPENDS;RECOMMENDS" "COMPONENTS" ${ARGN})
  string(TOUPPER ${group} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${arg_NAME})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${arg_SECTION})
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${arg_DEPENDS}")
  set(CPACK_DEBIAN_${key}_PACKAGE_RECOMMENDS "${arg_RECOMMENDS}")
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${arg_SUMMARY}\n${arg_DESCRIPTION}")
  foreach(component IN ITEMS ${arg_COMPONENTS} ${group}_documents)
    string(TOUPPER ${component} component_key)
    set(CPACK_COMPONENT_${component_key}_GROUP ${group})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
  endforeach()
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/copyright ${qva_changelog}
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${arg_NAME} COMPONENT ${group}_documents EXCLUDE_FROM_ALL)
endmacro()

# qva_shared_libraries(<group> <package> <relation> <target>...): programs that link the targets depend on a version of the
# package in that relation to this one, and the loader gets to know them. CPack itself has one relation for all packages.
macro(qva_shared_libraries group package relation)
  set(lines "")
  foreach(target IN ITEMS ${ARGN})
    get_target_property(name ${target} OUTPUT_NAME)
    get_target_property(soversion ${target} SOVERSION)
    if(NOT name)
      set(name ${target})
    endif()
    string(APPEND lines "lib${name} ${soversion} ${package} (${relation} ${qva_version_with_release})\n")
  endforeach()
  set(shlibs ${PROJECT_BINARY_DIR}/package/${package}/shlibs)
  file(CONFIGURE OUTPUT ${shlibs} CONTENT "${lines}" @ONLY)
  string(TOUPPER ${group} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers ${shlibs})
endmacro()

set(qva_changelog ${PROJECT_BINARY_DIR}/package/changelog.Debian.gz)
execute_process(COMMAND gzip -9 -n -c ${PROJECT_SOURCE_DIR}/packaging/debian/changelog OUTPUT_FILE ${qva_changelog}
                COMMAND_ERROR_IS_FATAL ANY)
set(qva_version_with_release "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(qva_library_package libqvannotationlegacy${PROJECT_VERSION_MAJOR})
set(qva_toolkit_package libqvannotationtoolkit0)

qva_package(
  libraries
  NAME ${qva_library_package}
  SECTION libs
  SUMMARY "legacy CAD annotations: library"
  DESCRIPTION "Reads the legacy model of 3D annotations (notes, labels, dimensions and images
in views on planes) from its two persisted encodings, and migrates each view
into the current annotation model, whose annotations carry SVG.
.
This package holds the library and the platform libraries that it builds on."
  RECOMMENDS "fonts-dejavu-core, fonts-liberation2 | fonts-liberation, fonts-noto-core"
  COMPONENTS platform library)
qva_shared_libraries(libraries ${qva_library_package} ">=" ${platform_targets} qvAnnotationLegacy)
qva_package(
  toolkit_libraries
  NAME ${qva_toolkit_package}
  SECTION libs
  SUMMARY "legacy CAD annotations: toolkit library"
  DESCRIPTION "Opens documents of legacy 3D annotations in both of their persisted encodings,
with findings about everything that is dropped, replaced or unreadable, walks
and moves what they hold, and migrates it to SVG pages.
.
This package holds the library for programs that were built with it. Its
interface is not fixed: each version serves programs built with that version."
  DEPENDS "${qva_library_package} (= ${qva_version_with_release})"
  COMPONENTS toolkit)
qva_shared_libraries(toolkit_libraries ${qva_toolkit_package} "=" qvAnnotationToolkit)
qva_package(
  headers
  NAME libqvannotationlegacy-dev
  SECTION libdevel
  SUMMARY "legacy CAD annotations: development files"
  DESCRIPTION "Reads the legacy model of 3D annotations from its two persisted encodings, and
migrates it into the current annotation model.
.
This package holds the headers of the library, of its platform and of the
toolkit, with what CMake and pkg-config need to find them, and examples."
  DEPENDS "${qva_library_package} (= ${qva_version_with_release}), ${qva_toolkit_package} (= ${qva_version_with_release})"
  COMPONENTS platform_development library_development toolkit_development)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/libqvannotationlegacy-dev)
file(
  GLOB_RECURSE pages
  RELATIVE ${PROJECT_SOURCE_DIR}
  CONFIGURE_DEPENDS docs/*.md)
qva_install_pages(${documents} headers_documents README.md CHANGELOG.md ${pages})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/pictures ${PROJECT_SOURCE_DIR}/docs/schemas DESTINATION ${documents}/docs COMPONENT headers_documents
        EXCLUDE_FROM_ALL)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/examples/
  DESTINATION ${documents}/examples
  COMPONENT headers_documents EXCLUDE_FROM_ALL
  FILES_MATCHING
  PATTERN "*.cpp"
  PATTERN "CMakeLists.txt"
  PATTERN "binary" EXCLUDE
  PATTERN "rasters" EXCLUDE)
qva_package(
  commands
  NAME qvannot
  SECTION graphics
  SUMMARY "show, check and migrate legacy CAD annotations"
  DESCRIPTION "Shows what old documents hold: notes, labels, dimensions and images with
leaders, frames and nested sub-annotations. Migrates each view to an SVG page
and each document to JSON, and reports everything that is dropped, replaced or
unreadable."
  DEPENDS "${qva_library_package} (= ${qva_version_with_release})"
  RECOMMENDS librsvg2-bin
  COMPONENTS tool)

include(CPack)
