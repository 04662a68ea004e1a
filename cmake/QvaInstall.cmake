# What `cmake --install` puts where. Each component is a part that can be installed alone:
#   platform, platform_development   the bundled platform: libraries; headers and the package `qvPlatform`
#   library, library_development     the library; headers and the package `qvAnnotationLegacy`
#   toolkit, toolkit_development     the toolkit: library; headers and the package `qvAnnotationToolkit`
#   tool                             qvannot, its manual page and its completions
# Everything finds everything by its place relative to itself, so an installed tree may be moved.

include(CMakePackageConfigHelpers)

set(QVA_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake)
set(QVA_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# qva_install_libraries(<package> COMPONENT <component> NAMESPACE <namespace> [COMPATIBILITY <mode>] [WITH_HEADER_SET]
#                       TARGETS ...)
# Installs the targets, and exports them as the package <package> for CMake and for pkg-config. A version of the package
# will do for those that ask for another one of the same major number, unless a mode says otherwise.
function(qva_install_libraries package)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WITH_HEADER_SET" "COMPONENT;NAMESPACE;COMPATIBILITY" "TARGETS")
  if(NOT arg_COMPATIBILITY)
    set(arg_COMPATIBILITY SameMajorVersion)
  endif()
  set(development ${arg_COMPONENT}_development)
  set(config_dir ${QVA_CMAKE_DIR}/${package})
  set(header_set "")
  if(arg_WITH_HEADER_SET)
    set(header_set FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT ${development})
  endif()
  set_target_properties(${arg_TARGETS} PROPERTIES INSTALL_RPATH $ORIGIN)
  install(
    TARGETS ${arg_TARGETS}
    EXPORT ${package}Targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ${arg_COMPONENT}
            NAMELINK_COMPONENT ${development} ${header_set})
  install(EXPORT ${package}Targets NAMESPACE ${arg_NAMESPACE} DESTINATION ${config_dir} COMPONENT ${development})

  set(generated ${PROJECT_BINARY_DIR}/package)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/${package}Config.cmake.in
                                ${generated}/${package}Config.cmake INSTALL_DESTINATION ${config_dir})
  write_basic_package_version_file(${generated}/${package}ConfigVersion.cmake COMPATIBILITY ${arg_COMPATIBILITY})
  install(FILES ${generated}/${package}Config.cmake ${generated}/${package}ConfigVersion.cmake
          DESTINATION ${config_dir} COMPONENT ${development})

  file(RELATIVE_PATH QVA_PREFIX_FROM_PKGCONFIG /${QVA_PKGCONFIG_DIR} /)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${package}.pc.in ${generated}/${package}.pc @ONLY)
  install(FILES ${generated}/${package}.pc DESTINATION ${QVA_PKGCONFIG_DIR} COMPONENT ${development})
endfunction()

if(QVA_PLATFORM STREQUAL "bundled")
  get_property(platform_targets GLOBAL PROPERTY QVA_PLATFORM_TARGETS)
  qva_install_libraries(qvPlatform COMPONENT platform NAMESPACE qv:: TARGETS ${platform_targets})
  foreach(target IN LISTS platform_targets)
    get_target_property(folder ${target} SOURCE_DIR)
    install(DIRECTORY ${folder}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT platform_development)
  endforeach()
endif()
qva_install_libraries(
  qvAnnotationLegacy
  COMPONENT library
  NAMESPACE qvAnnotationLegacy::
  WITH_HEADER_SET
  TARGETS qvAnnotationLegacy)

if(QVA_BUILD_TOOL)
  # Not the next version's: the toolkit's interface is not fixed.
  qva_install_libraries(
    qvAnnotationToolkit
    COMPONENT toolkit
    NAMESPACE qvAnnotationLegacy::
    COMPATIBILITY SameMinorVersion
    TARGETS qvAnnotationToolkit)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/toolkit/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT toolkit_development)

  file(RELATIVE_PATH libraries_from_tool /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(qvannot PROPERTIES INSTALL_RPATH $ORIGIN/${libraries_from_tool})
  install(TARGETS qvannot RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  set(texts ${PROJECT_BINARY_DIR}/apps/qvannot/texts)
  install(FILES ${texts}/qvannot.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  install(FILES ${texts}/qvannot.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME qvannot COMPONENT tool)
  install(FILES ${texts}/_qvannot DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tool)
  install(FILES ${texts}/qvannot.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
endif()
