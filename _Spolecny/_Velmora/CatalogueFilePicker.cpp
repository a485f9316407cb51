#include "_Velmora/CatalogueFilePicker.h"

#include <commdlg.h>
#include <shlobj.h>
#include <shobjidl.h>

#include "CQvxRegistry.h"
#include "Win/LateBound.h"
#include "Win/WideText.h"

namespace {

constexpr wchar_t kTitle[] = L"Vyhledej soubor pro načtení katalogu potrubí";
constexpr wchar_t kFileTypeName[] = L"Katalogy potrubí";
constexpr wchar_t kPattern[] = L"*.qxp";

std::u16string CommonDataFolder() {
    try {
        return CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath);
    } catch (...) {
        return {};  // no folder to start in: the dialog picks its own
    }
}

// Releases a COM interface when it goes out of scope.
template <typename Interface>
class ComPointer {
public:
    ComPointer() = default;
    ~ComPointer() {
        if (pointer_ != nullptr) pointer_->Release();
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    Interface** Receive() { return &pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

private:
    Interface* pointer_ = nullptr;
};

enum class ShellOutcome { Picked, Cancelled, Failed };

// COM and the shell, loaded when a file is first picked.
struct ShellFunctions {
    decltype(CoInitializeEx)* initialise = LateBound<decltype(CoInitializeEx)>(L"ole32.dll", "CoInitializeEx");
    decltype(CoUninitialize)* uninitialise = LateBound<decltype(CoUninitialize)>(L"ole32.dll", "CoUninitialize");
    decltype(CoCreateInstance)* createInstance =
        LateBound<decltype(CoCreateInstance)>(L"ole32.dll", "CoCreateInstance");
    decltype(CoTaskMemFree)* freeTaskMemory = LateBound<decltype(CoTaskMemFree)>(L"ole32.dll", "CoTaskMemFree");
    decltype(SHCreateItemFromParsingName)* itemFromPath =
        LateBound<decltype(SHCreateItemFromParsingName)>(L"shell32.dll", "SHCreateItemFromParsingName");

    bool Complete() const {
        return initialise != nullptr && uninitialise != nullptr && createInstance != nullptr &&
               freeTaskMemory != nullptr && itemFromPath != nullptr;
    }
};

const ShellFunctions& LoadedShell() {
    static const ShellFunctions functions;
    return functions;
}

ShellOutcome PickWithShellDialog(HWND owner, std::u16string& path) {
    ComPointer<IFileOpenDialog> dialog;
    if (FAILED(LoadedShell().createInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                            IID_PPV_ARGS(dialog.Receive())))) {
        return ShellOutcome::Failed;
    }
    const std::u16string folderPath = CommonDataFolder();
    ComPointer<IShellItem> folder;
    if (!folderPath.empty() &&
        SUCCEEDED(LoadedShell().itemFromPath(Wide(folderPath), nullptr, IID_PPV_ARGS(folder.Receive())))) {
        dialog->SetFolder(folder.operator->());
    }
    const COMDLG_FILTERSPEC types[] = {{kFileTypeName, kPattern}};
    FILEOPENDIALOGOPTIONS options = 0;
    if (FAILED(dialog->SetTitle(kTitle)) || FAILED(dialog->SetDefaultExtension(kPattern)) ||
        FAILED(dialog->SetFileTypes(1, types)) || FAILED(dialog->GetOptions(&options)) ||
        FAILED(dialog->SetOptions(options | FOS_STRICTFILETYPES))) {
        return ShellOutcome::Failed;
    }
    const HRESULT shown = dialog->Show(owner);
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED)) return ShellOutcome::Cancelled;
    if (FAILED(shown)) return ShellOutcome::Failed;

    ComPointer<IShellItem> result;
    if (FAILED(dialog->GetResult(result.Receive()))) return ShellOutcome::Cancelled;
    PWSTR name = nullptr;
    if (FAILED(result->GetDisplayName(SIGDN_FILESYSPATH, &name))) return ShellOutcome::Cancelled;
    path = FromWide(name);
    LoadedShell().freeTaskMemory(name);
    return ShellOutcome::Picked;
}

std::optional<std::u16string> PickWithCommonDialog(HWND owner) {
    wchar_t file[MAX_PATH] = {};
    // The file-type name and its pattern, each ending in a null, and a null after the last pair.
    const std::wstring filter = std::wstring(kFileTypeName) + L'\0' + kPattern + L'\0';
    const std::u16string folder = CommonDataFolder();
    OPENFILENAMEW request{};
    request.lStructSize = sizeof(request);
    request.hwndOwner = owner;
    request.lpstrFilter = filter.c_str();
    request.lpstrFile = file;
    request.nMaxFile = MAX_PATH;
    request.lpstrInitialDir = folder.empty() ? nullptr : Wide(folder);
    request.lpstrTitle = kTitle;
    request.lpstrDefExt = L"qxp";
    request.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
    static const auto open = LateBound<decltype(GetOpenFileNameW)>(L"comdlg32.dll", "GetOpenFileNameW");
    if (open == nullptr || !open(&request)) return std::nullopt;
    return FromWide(file);
}

}  // namespace

std::optional<std::u16string> PickCatalogueFile(HWND owner) {
    std::u16string path;
    ShellOutcome outcome = ShellOutcome::Failed;
    if (LoadedShell().Complete()) {
        const HRESULT initialised = LoadedShell().initialise(nullptr, COINIT_APARTMENTTHREADED);
        outcome = PickWithShellDialog(owner, path);
        if (SUCCEEDED(initialised)) LoadedShell().uninitialise();
    }
    if (outcome == ShellOutcome::Picked) return path;
    if (outcome == ShellOutcome::Cancelled) return std::nullopt;
    return PickWithCommonDialog(owner);
}
