// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

std::vector<TestFormat> vtiFormats() { return {}; }
