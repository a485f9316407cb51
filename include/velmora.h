/* velmora.h: the pipe-material dialogs for host programs, from velmora.dll.
 *
 * A host opens the user's catalogue once, lets the user pick materials (and profiles) from it as
 * often as it needs, may open the editor on it, and closes it at the end. The catalogue is found
 * through the installation's folder values, as the editor finds it; on the first run the standard
 * catalogue is read and saved as the user's. Every problem with the files is reported to the user
 * by the library itself, in the program's own messages.
 *
 * Call the functions from the host's user-interface thread. The dialogs are modal to `owner`
 * (a window of the host, or NULL). Names are UTF-16, as wchar_t is on Windows.
 */
#ifndef VELMORA_H
#define VELMORA_H

#include <windows.h>

#ifdef VELMORA_BUILDING_DLL
#define VELMORA_API __declspec(dllexport)
#else
#define VELMORA_API __declspec(dllimport)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The usage filter: a material is offered when it shares a bit with each of the two masks. */
#define VELMORA_PLACEMENT_INDOOR 1   /* "ZTI" */
#define VELMORA_PLACEMENT_NETWORKS 2 /* "Inženýrské sítě" */
#define VELMORA_PLACEMENT_ALL 3

#define VELMORA_MEDIUM_SEWAGE 1          /* "Kanalizace" */
#define VELMORA_MEDIUM_PRESSURE_SEWAGE 2 /* "Kan. tlaková" */
#define VELMORA_MEDIUM_WATER 4           /* "Voda" */
#define VELMORA_MEDIUM_GAS 8             /* "Plyn" */
#define VELMORA_MEDIUM_HEATING 16        /* "Teplovod/UT" */
#define VELMORA_MEDIUM_ALL 31

/* What the functions return. */
#define VELMORA_OK 1                /* chosen, or the editor closed with OK */
#define VELMORA_CANCELLED 0         /* the user closed the dialog without choosing */
#define VELMORA_INVALID_ARGUMENT -1 /* nothing was shown */
#define VELMORA_NAME_TOO_LONG -2    /* chosen, but the name does not fit the buffer (which is left empty) */
#define VELMORA_FAILED -3           /* the dialog could not be shown */

/* A name buffer of this many characters holds every name the editor lets the user type, with
   the terminating zero. */
#define VELMORA_NAME_SIZE 21

/* A profile is handed back as the index of its DN in the catalogue's fixed table: 0 "DN 8",
   1 "DN 10", 2 "DN 12", ... 11 "DN 100", ... 27 "DN 1200"; or as this when none was asked for. */
#define VELMORA_NO_PROFILE -1

typedef struct VelmoraCatalogue VelmoraCatalogue;

/* Reads the user's catalogue. Returns NULL only when there is no memory for it: a catalogue that
   cannot be read gives an empty one, after telling the user why. */
VELMORA_API VelmoraCatalogue* VelmoraOpenCatalogue(void);

/* Lets go of the catalogue; NULL is allowed. */
VELMORA_API void VelmoraCloseCatalogue(VelmoraCatalogue* catalogue);

/* Shows the selection dialog "Materiály potrubí" with the filter (placement, medium), which its
   radios show and the first click on one of them applies (every material is listed at first). On
   VELMORA_OK, `name` holds the chosen material's unique name and `dnIndex` (which may be NULL)
   the DN index of the chosen profile, or VELMORA_NO_PROFILE when `selectProfile` is 0.
   `nameSize` counts characters, the terminating zero included. */
VELMORA_API int VelmoraSelectMaterial(VelmoraCatalogue* catalogue, HWND owner, int placement, int medium,
                                      int selectProfile, wchar_t* name, int nameSize, int* dnIndex);

/* Shows the editor "Editace materiálů" on a copy of the catalogue, listing what the filter selects
   once the user clicks a filter (every material at first). OK saves a changed copy as the user's
   catalogue and hands it back: the selection dialog shows it from then on. */
VELMORA_API int VelmoraEditMaterials(VelmoraCatalogue* catalogue, HWND owner, int placement, int medium);

#ifdef __cplusplus
}
#endif

#endif
