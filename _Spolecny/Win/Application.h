#pragma once

#include <string>

#include "Win/FrameworkResources.h"

// The program's name from its resources; the active window's title when it has none.
std::u16string ApplicationTitle();
