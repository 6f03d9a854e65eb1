#include "Console.h"

#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace SmbiosTree::Console {

namespace {

std::string Utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(size > 0 ? static_cast<std::size_t>(size) : 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back();
    return utf8;
}

} // namespace

// The arguments of main() have lost every character that the code page does not know.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/)
{
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; wide != nullptr && i < count; ++i)
        arguments.push_back(Utf8(wide[i]));
    LocalFree(wide);
    return arguments;
}

void PrepareStreams()
{
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

std::FILE* OpenToRead(const std::string& name)
{
    return _wfopen(std::filesystem::u8path(name).c_str(), L"rb");
}

bool IsTerminal()
{
    return _isatty(_fileno(stdout)) != 0;
}

bool ShowsColours()
{
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

} // namespace SmbiosTree::Console
