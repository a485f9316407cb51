#pragma once

#include <windows.h>

#include <string>

#include "Win/FrameworkResources.h"

// The program's name from its resources; the active window's title when it has none.
std::u16string ApplicationTitle();

// The module whose resources (dialog templates, icons, texts) the dialogs load: the program itself,
// unless a library that carries the resources names itself.
HINSTANCE ResourceModule();
void SetResourceModule(HINSTANCE module);
