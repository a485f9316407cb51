#include "Win/Application.h"

#include <windows.h>

#include "Win/Window.h"
#include "Win/WideText.h"

namespace {
HINSTANCE resourceModule = nullptr;
}

HINSTANCE ResourceModule() {
    return resourceModule != nullptr ? resourceModule : GetModuleHandleW(nullptr);
}

void SetResourceModule(HINSTANCE module) {
    resourceModule = module;
}

std::u16string ApplicationTitle() {
    const wchar_t* resource = nullptr;
    const int length = LoadStringW(ResourceModule(), IDS_APPLICATION_TITLE,
                                   reinterpret_cast<LPWSTR>(&resource), 0);  // read-only view of the resource
    if (length > 0) return FromWide(std::wstring_view(resource, static_cast<std::size_t>(length)));
    return CWindow(GetActiveWindow()).Text();
}
