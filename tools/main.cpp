#include <iostream>
#include <string>
#include <vector>

#include "CatalogueTool.h"
#include "TextCodec.h"

#ifdef _WIN32
#include "Win/CWin32FileSystem.h"
#include "WindowsConsole.h"

// Windows passes the arguments as UTF-16, so file names keep their Czech letters.
int wmain(int argc, wchar_t** argv) {
    UseUtf8Console();
    CWin32FileSystem files;
    const CFileSystemScope installedFiles(files);
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) {
        const std::wstring argument(argv[i]);
        arguments.emplace_back(argument.begin(), argument.end());
    }
    return RunCatalogueTool(arguments, std::cout, std::cerr);
}
#else
int main(int argc, char** argv) {
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(FromUtf8(argv[i]));
    return RunCatalogueTool(arguments, std::cout, std::cerr);
}
#endif
