// velmora.dll: the material dialogs for host programs, behind the C interface of velmora.h.

#include "velmora.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <memory>
#include <string>

#include "Win/Application.h"
#include "Win/Win32Services.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxProfil.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueLoading.h"
#include "_Velmora/QxDlgMatEdituj.h"

struct VelmoraCatalogue {
    CQvxSezMaterialu list;
};

namespace {

HINSTANCE thisLibrary = nullptr;

// The dialogs need version 6 of the common controls whatever the host's own manifest asks for, so
// every entry runs in the activation context of this library's manifest (resource 2).
HANDLE LibraryActivationContext() {
    static const HANDLE context = [] {
        ACTCTXW request{};
        request.cbSize = sizeof(request);
        request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.hModule = thisLibrary;
        request.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
        return CreateActCtxW(&request);
    }();
    return context;
}

// The library's activation context, active for as long as this object lives, so that its dialogs
// get the common controls of its manifest.
class ActivatedContext {
public:
    ActivatedContext() {
        const HANDLE context = LibraryActivationContext();
        if (context != INVALID_HANDLE_VALUE) ActivateActCtx(context, &cookie_);
    }
    ~ActivatedContext() {
        if (cookie_ != 0) DeactivateActCtx(0, cookie_);
    }
    ActivatedContext(const ActivatedContext&) = delete;
    ActivatedContext& operator=(const ActivatedContext&) = delete;

private:
    ULONG_PTR cookie_ = 0;
};

// What the program's start-up provides and an entry must provide for itself, the context first.
struct EntryScope {
    ActivatedContext context;
    CWin32Services services;
};

bool IsFilter(int placement, int medium) {
    return placement >= 1 && placement <= VELMORA_PLACEMENT_ALL && medium >= 1 && medium <= VELMORA_MEDIUM_ALL;
}

int Result(INT_PTR dialogResult) {
    if (dialogResult == IDOK) return VELMORA_OK;
    return dialogResult == IDCANCEL ? VELMORA_CANCELLED : VELMORA_FAILED;
}

// No exception may cross into the host.
template <typename Entry>
int Guarded(Entry&& entry) {
    try {
        return entry();
    } catch (...) {
        return VELMORA_FAILED;
    }
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        thisLibrary = library;
        SetResourceModule(library);  // the dialog templates, icons and texts are ours
        DisableThreadLibraryCalls(library);
    }
    return TRUE;
}

VelmoraCatalogue* VelmoraOpenCatalogue(void) {
    try {
        auto catalogue = std::make_unique<VelmoraCatalogue>();
        EntryScope scope;
        LoadCatalogueAtStartup(catalogue->list);
        return catalogue.release();
    } catch (...) {
        return nullptr;
    }
}

void VelmoraCloseCatalogue(VelmoraCatalogue* catalogue) {
    delete catalogue;
}

int VelmoraSelectMaterial(VelmoraCatalogue* catalogue, HWND owner, int placement, int medium, int selectProfile,
                          wchar_t* name, int nameSize, int* dnIndex) {
    if (catalogue == nullptr || !IsFilter(placement, medium) || name == nullptr || nameSize < 1) {
        return VELMORA_INVALID_ARGUMENT;
    }
    return Guarded([&] {
        name[0] = L'\0';
        if (dnIndex != nullptr) *dnIndex = VELMORA_NO_PROFILE;
        EntryScope scope;
        CQxDlgMatVyber dialog(owner);
        const int result = Result(dialog.Run(catalogue->list, {placement, medium}, selectProfile != 0));
        if (result != VELMORA_OK) return result;

        if (dnIndex != nullptr && dialog.ChosenProfile() != nullptr) *dnIndex = dialog.ChosenProfile()->DnIndex();
        const std::u16string& chosen = dialog.ChosenMaterial()->UniqueName();
        if (chosen.size() >= static_cast<std::size_t>(nameSize)) return VELMORA_NAME_TOO_LONG;
        *std::copy(chosen.begin(), chosen.end(), name) = L'\0';
        return VELMORA_OK;
    });
}

int VelmoraEditMaterials(VelmoraCatalogue* catalogue, HWND owner, int placement, int medium) {
    if (catalogue == nullptr || !IsFilter(placement, medium)) return VELMORA_INVALID_ARGUMENT;
    return Guarded([&] {
        EntryScope scope;
        CQxDlgMatEdituj editor(owner);
        return Result(editor.EditMaterials(catalogue->list, {placement, medium}));
    });
}
