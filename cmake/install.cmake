# What `cmake --install` puts where. No installed file names a directory of this machine, so the tree
# can be moved. Components: Runtime (shared libraries), Tools, Development.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ztxml)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# ---- Headers and libraries ---------------------------------------------------------------------
set(headers include/ platform/include/)
if(TARGET ztplatform_host)
  list(APPEND headers platform/host/include/)
endif()
install(DIRECTORY ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT Development FILES_MATCHING PATTERN *.h PATTERN *.inc)

set(libraries ztxml ztxml_static ztxml_platform_api ztxml_flat)
set_target_properties(ztxml_flat PROPERTIES EXPORT_NAME flat)
set_target_properties(ztxml PROPERTIES INSTALL_RPATH $ORIGIN)  # the platform lies beside it
set_target_properties(ztxml_platform_api PROPERTIES EXPORT_NAME platform_api)
if(TARGET ztplatform_host)
  list(APPEND libraries ztplatform_host ztplatform_host_static)
  set_target_properties(ztplatform_host PROPERTIES EXPORT_NAME platform_host)
  set_target_properties(ztplatform_host_static PROPERTIES EXPORT_NAME platform_host_static)
endif()
install(TARGETS ${libraries} EXPORT ztxmlTargets
        RUNTIME COMPONENT Runtime
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development)

# ---- CMake package -----------------------------------------------------------------------------
install(EXPORT ztxmlTargets NAMESPACE ztxml:: DESTINATION ${package_dir} COMPONENT Development)
configure_package_config_file(cmake/ztxmlConfig.cmake.in ${PROJECT_BINARY_DIR}/ztxmlConfig.cmake
                              INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ztxmlConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ztxmlConfig.cmake ${PROJECT_BINARY_DIR}/ztxmlConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT Development)

# ---- pkg-config --------------------------------------------------------------------------------
# Directories are relative to the file's own, so that a moved tree needs nothing.
file(RELATIVE_PATH ztxml_pc_prefix /prefix/${pkgconfig_dir} /prefix)
string(REGEX REPLACE "/$" "" ztxml_pc_prefix "${ztxml_pc_prefix}")
set(pkgconfig_files ztxml ztxml-flat)
if(TARGET ztplatform_host)
  set(ztxml_pc_platform ztplatform_host)
  list(APPEND pkgconfig_files ztplatform_host)
endif()
foreach(name IN LISTS pkgconfig_files)
  configure_file(cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${pkgconfig_dir} COMPONENT Development)
endforeach()

# ---- The command line tool ---------------------------------------------------------------------
if(TARGET ztxml_cli)
  file(RELATIVE_PATH to_libraries /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
  set_target_properties(ztxml_cli PROPERTIES INSTALL_RPATH $ORIGIN/${to_libraries})
  install(TARGETS ztxml_cli RUNTIME COMPONENT Tools)
  if(EXISTS ${PROJECT_SOURCE_DIR}/docs/ztxml.1)
    install(FILES docs/ztxml.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  endif()
  if(EXISTS ${PROJECT_SOURCE_DIR}/tools/completion)
    install(FILES tools/completion/ztxml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT Tools)
    install(FILES tools/completion/_ztxml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT Tools)
    install(FILES tools/completion/ztxml.fish
            DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT Tools)
  endif()
endif()
