# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause

# What a consumer finds after `cmake --install`: library, headers, a CMake package and a pkg-config file. Every path in
# them is relative, so the installed tree can be moved as a whole.
include(CMakePackageConfigHelpers)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/TAMO)
install(TARGETS TAMO EXPORT TAMOTargets FILE_SET HEADERS)
install(EXPORT TAMOTargets NAMESPACE TAMO:: DESTINATION ${packageDir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TAMOConfig.cmake.in ${PROJECT_BINARY_DIR}/TAMOConfig.cmake
  INSTALL_DESTINATION ${packageDir} NO_SET_AND_CHECK_MACRO)
# Before version 1.0 a new minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TAMOConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TAMOConfig.cmake ${PROJECT_BINARY_DIR}/TAMOConfigVersion.cmake
  DESTINATION ${packageDir})

# The way from the folder of tamo.pc up to the prefix; a library folder given as an absolute path cannot move.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(pkgConfigPrefix ${CMAKE_INSTALL_PREFIX})
  set(pkgConfigLibDir ${CMAKE_INSTALL_LIBDIR})
else()
  file(RELATIVE_PATH upwards /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" upwards "${upwards}")
  set(pkgConfigPrefix "\${pcfiledir}/${upwards}")
  set(pkgConfigLibDir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
  set(pkgConfigIncludeDir ${CMAKE_INSTALL_INCLUDEDIR})
else()
  set(pkgConfigIncludeDir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
# A shared library brings OpenGL along by itself; a static one leaves it to the consumer's link line.
if(BUILD_SHARED_LIBS)
  set(pkgConfigRequiresPrivate "")
  set(pkgConfigDefinitions "")
else()
  set(pkgConfigRequiresPrivate "gl")
  set(pkgConfigDefinitions " -DTAMO_STATIC_DEFINE")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/tamo.pc.in ${PROJECT_BINARY_DIR}/tamo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tamo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
