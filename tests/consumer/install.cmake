# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause

# Installs the library from BUILD_DIR and moves the installed tree to PREFIX, as a packager may. Where SOURCE_DIR is
# given, first builds it in BUILD_DIR with GENERATOR and OPTIONS.
if(SOURCE_DIR)
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${BUILD_DIR} -G ${GENERATOR} ${OPTIONS}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_DIR} COMMAND_ERROR_IS_FATAL ANY)
endif()
file(REMOVE_RECURSE ${PREFIX} ${PREFIX}-staged)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX}-staged COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${PREFIX}-staged ${PREFIX})
