// Resource ids of the program. Plain macros: the resource compiler includes this too.
#pragma once

#include "Win/FrameworkResources.h"

// Icons: the program's own (lowest id: the one the shell shows) and the buttons' pictures.
#define IDI_VELMORA 1
#define IDI_ADD 101
#define IDI_DELETE 102
#define IDI_EDIT 103
#define IDI_COPY 104
