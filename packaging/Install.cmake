# What `cmake --install` puts in place, and the Debian packages `cpack -G DEB`
# makes of it, one per component:
#   module       libOrvelCommonUI.so.<major>.<minor> (package liborvelcommonui<major>.<minor>)
#   development  the contract's headers and library, the CMake package and the
#                pkg-config file (liborvelcommonui-dev)
#   programs     orvel-host, orvel-window with its desktop entry and icon,
#                orvel-words (orvel-programs)
# Included last by the top-level CMakeLists.txt.
include(CMakePackageConfigHelpers)

set(pkg_doc ${CMAKE_INSTALL_DATADIR}/doc)
set(cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OrvelCommonUI)

# The module.
install(TARGETS OrvelCommonUI
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT module NAMELINK_COMPONENT development
  PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# The contract: headers (Version.h made from the project's version), the
# library behind them, the CMake package and the pkg-config file.
install(DIRECTORY include/orvel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
  FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/include-generated/orvel/Version.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orvel COMPONENT development)
set_target_properties(orvel_contract PROPERTIES EXPORT_NAME Contract OUTPUT_NAME OrvelCommonUIContract)
install(TARGETS orvel_contract EXPORT OrvelCommonUITargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(EXPORT OrvelCommonUITargets NAMESPACE OrvelCommonUI:: DESTINATION ${cmake_dir}
  COMPONENT development)
set(ORVEL_MODULE_INSTALL_FILE ${CMAKE_INSTALL_LIBDIR}/${ORVEL_MODULE_FILE})
configure_package_config_file(packaging/OrvelCommonUIConfig.cmake.in
  ${PROJECT_BINARY_DIR}/packaging/OrvelCommonUIConfig.cmake
  INSTALL_DESTINATION ${cmake_dir} PATH_VARS ORVEL_MODULE_INSTALL_FILE)
# A host built for one minor version does not fit a module of another.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/packaging/OrvelCommonUIConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/packaging/OrvelCommonUIConfig.cmake
              ${PROJECT_BINARY_DIR}/packaging/OrvelCommonUIConfigVersion.cmake
  DESTINATION ${cmake_dir} COMPONENT development)
file(RELATIVE_PATH ORVEL_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" ORVEL_PC_TO_PREFIX "${ORVEL_PC_TO_PREFIX}")
set(ORVEL_PC_DL "")
if(CMAKE_DL_LIBS)
  set(ORVEL_PC_DL -l${CMAKE_DL_LIBS})
endif()
configure_file(packaging/OrvelCommonUI.pc.in ${PROJECT_BINARY_DIR}/packaging/OrvelCommonUI.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packaging/OrvelCommonUI.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The programs.
set(programs orvel-host orvel-words)
if(ORVEL_BUILD_QT)
  list(APPEND programs orvel-window)
  install(FILES packaging/orvel-window.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT programs)
  install(FILES packaging/orvel-window.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT programs)
endif()
install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
install(DIRECTORY apps/orvel-host/scripts/ DESTINATION ${CMAKE_INSTALL_DATADIR}/orvel-host/scripts
  COMPONENT programs)

# ---- the contract's reference ----
find_program(DOXYGEN doxygen)
if(DOXYGEN)
  configure_file(packaging/Doxyfile.in ${PROJECT_BINARY_DIR}/packaging/Doxyfile @ONLY)
  add_custom_target(docs
    COMMAND ${DOXYGEN} ${PROJECT_BINARY_DIR}/packaging/Doxyfile
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    COMMENT "The host contract's reference in ${PROJECT_BINARY_DIR}/docs/html"
    VERBATIM)
endif()

# ---- Debian packages ----
string(TOLOWER "libOrvelCommonUI${ORVEL_SOVERSION}" deb_module)
set(deb_dev liborvelcommonui-dev)
set(deb_programs orvel-programs)
set(deb_release 1)
set(ORVEL_DEB_VERSION ${PROJECT_VERSION}-${deb_release})

# Each package's copyright and changelog, as Debian wants them.
configure_file(packaging/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog.Debian @ONLY)
execute_process(COMMAND gzip -9nc ${PROJECT_BINARY_DIR}/packaging/changelog.Debian
  OUTPUT_FILE ${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz)
foreach(component module development programs)
  if(component STREQUAL module)
    set(deb ${deb_module})
  elseif(component STREQUAL development)
    set(deb ${deb_dev})
  else()
    set(deb ${deb_programs})
  endif()
  install(FILES packaging/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz
    DESTINATION ${pkg_doc}/${deb} COMPONENT ${component}
    PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()

set(CPACK_PACKAGE_NAME orvel-common-ui)
set(CPACK_PACKAGE_VENDOR "Orvel developers")
set(CPACK_PACKAGE_CONTACT "Orvel developers <developers@orvel.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL module development programs)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${deb_release})
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE orvel-common-ui)
set(CPACK_DEBIAN_MODULE_PACKAGE_NAME ${deb_module})
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# The library's folder is ldconfig's: the package activates its trigger.
set(CPACK_DEBIAN_MODULE_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${deb_dev})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${deb_module} (= ${ORVEL_DEB_VERSION})")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME ${deb_programs})
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "${deb_module} (= ${ORVEL_DEB_VERSION})")
set(CPACK_COMPONENT_MODULE_DESCRIPTION "common catalogues of the Orvel accounting suite
The module a host application loads at run time: firms and firm groups,
goods and services, banks, currencies with their exchange rates and amounts
in words, reference books, departments, destinations and accounting
templates, with their windows, lists and printouts. Every text is Lithuanian.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "host contract of the Orvel common catalogues
The headers, library, CMake package and pkg-config file a host developer
builds a host of the Orvel common-catalogue module with:
find_package(OrvelCommonUI 1.0 CONFIG REQUIRED).")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION "reference hosts of the Orvel common catalogues
orvel-host drives the module from a terminal or a script over an SQLite
office or a PostgreSQL server, orvel-window shows it in windows, and
orvel-words writes amounts in Lithuanian words.")
include(CPack)
