// smbios-tree: a machine's SMBIOS data as a tree, on the terminal or for other programs.

#include "Arguments.h"
#include "Console.h"
#include "Run.h"

#include <SMBIOSProtocol/Logger.h>

#include <cstdio>

namespace {

void ShowLog()
{
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    logger.TraceLocks = true;
    logger.SetSink([](const LOGGER::LogLine& line) {
        std::fprintf(stderr, "%s: %s\n", line.Function, line.Message.c_str());
    });
}

} // namespace

int main(int argc, char** argv)
{
    using namespace SmbiosTree;
    Console::PrepareStreams();
    int status = 0;
    const std::optional<Arguments> arguments = ParseArguments(Console::Arguments(argc, argv), status);
    if (!arguments)
        return status;
    if (arguments->ShowLog)
        ShowLog();
    return Run(*arguments);
}
