// Resource ids the framework itself reads. Plain macros: the resource compiler includes this too.
#pragma once

// The program's name, the caption of the framework's own messages.
#define IDS_APPLICATION_TITLE 1000
