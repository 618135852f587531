// Helpers of the grid tests: a page drawn into a file (MIRVAL_TEST_KEEP=dir keeps it).
#pragma once
#include "library_test.h"

using GridTest = PageTest;
