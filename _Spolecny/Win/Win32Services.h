#pragma once

#include <windows.h>
#include <commctrl.h>

#include "Win/CWin32FileSystem.h"
#include "Win/CWin32RegistryValues.h"
#include "Win/CWin32UserMessages.h"

// What a Windows entry point provides before it shows a material dialog, for as long as this object
// lives: the common controls, and Windows' own messages, folder values and files behind the
// model's seams.
class CWin32Services {
public:
    CWin32Services() {
        // Every class of the common-controls group that 0xFF names: list and tree views among them.
        INITCOMMONCONTROLSEX controls{sizeof(controls), 0xFF};
        InitCommonControlsEx(&controls);
    }
    CWin32Services(const CWin32Services&) = delete;
    CWin32Services& operator=(const CWin32Services&) = delete;

private:
    CWin32UserMessages messages_;
    CUserMessagesScope installedMessages_{messages_};
    CWin32RegistryValues registry_;
    CRegistryValuesScope installedRegistry_{registry_};
    CWin32FileSystem files_;
    CFileSystemScope installedFiles_{files_};
};
