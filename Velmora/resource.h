// Resource ids of the program. Plain macros: the resource compiler includes this too.
#pragma once

#include "Win/FrameworkResources.h"

#include "_Velmora/MaterialDialogResources.h"
