# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
# Runs PROGRAM with ARGUMENT, if any, and fails unless it ends with status 0 and its standard output matches EXPECTED:
# a test's PASS_REGULAR_EXPRESSION would leave its status out.
execute_process(COMMAND ${PROGRAM} ${ARGUMENT} OUTPUT_VARIABLE output RESULT_VARIABLE status)
message("${output}")
if(NOT status STREQUAL "0")
  message(FATAL_ERROR "expected status 0, found ${status}")
endif()
if(NOT output MATCHES "${EXPECTED}")
  message(FATAL_ERROR "expected output that matches ${EXPECTED}")
endif()
