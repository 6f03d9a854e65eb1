#include "Console.h"

#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace SmbiosTree::Console {

std::vector<std::string> Arguments(int argc, char** argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void PrepareStreams()
{
    // A stream that the caller closed would otherwise be the next file that is opened, and be written into.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
    // Without a buffer of the stream, a report that fits Output's is one write, and stays whole in a file
    // that other processes append to.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
}

std::FILE* OpenToRead(const std::string& name)
{
    return std::fopen(name.c_str(), "rb");
}

bool IsTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

bool ShowsColours()
{
    const char* const terminal = std::getenv("TERM");
    return IsTerminal() && terminal != nullptr && std::string_view(terminal) != "dumb";
}

} // namespace SmbiosTree::Console
