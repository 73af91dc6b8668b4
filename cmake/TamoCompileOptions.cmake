# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause

# What every target of this project is compiled with; never part of what a consumer inherits.
add_library(tamoCompileOptions INTERFACE)

option(TAMO_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
target_compile_options(tamoCompileOptions INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${TAMO_WARNINGS_AS_ERRORS}>:-Werror>
  # Fused multiply-add rounds once where two roundings are meant: results would differ between machines.
  -ffp-contract=off)

# Wrong indices stop the program with a message instead of reading on; the scan's loops index no container.
target_compile_definitions(tamoCompileOptions INTERFACE _GLIBCXX_ASSERTIONS)
