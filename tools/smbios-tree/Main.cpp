// smbios-tree: a machine's SMBIOS data as a tree, on the terminal or for other programs.

#include "Arguments.h"
#include "Console.h"
#include "Failure.h"
#include "Report.h"
#include "Text.h"
#include "Tree.h"

#include <SMBIOSProtocol/Logger.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>

namespace SmbiosTree {

namespace {

constexpr int Done = 0;
constexpr int Failed = 1;

std::optional<std::string> FirstInput(const Arguments& arguments)
{
    return arguments.Inputs.empty() ? std::nullopt : std::make_optional(arguments.Inputs.front());
}

std::string NameOf(const std::optional<std::string>& input)
{
    if (!input)
        return "this machine";
    return *input == "-" ? "standard input" : *input;
}

void Complain(const std::string& subject, const std::string& message)
{
    std::fprintf(stderr, "smbios-tree: %s: %s\n", Visible(subject).c_str(), message.c_str());
}

// A full disk may show only when the last bytes leave the buffer.
void Print(const std::string& text)
{
    errno = 0;
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0)
        throw OutputFailure(errno != 0 ? std::strerror(errno) : "it cannot be written");
}

void ShowLog()
{
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    logger.TraceLocks = true;
    logger.SetSink([](const LOGGER::LogLine& line) {
        std::fprintf(stderr, "%s: %s\n", line.Function, line.Message.c_str());
    });
}

std::string Report(const Node& tree, const Arguments& arguments)
{
    switch (arguments.Output) {
    case Output::Flat:
        return Flat(tree, arguments.Style);
    default:
        return Indented(tree, arguments.Style);
    }
}

int ReportOne(const Arguments& arguments)
{
    const std::optional<std::string> input = FirstInput(arguments);
    try {
        Print(Report(Subtree(*Open(input, arguments.ReadAs), arguments.Path), arguments));
        return Done;
    } catch (const Failure& failure) {
        Complain(NameOf(input), failure.what());
        return Failed;
    }
}

int Run(int argc, char** argv)
{
    int status = Done;
    const std::optional<Arguments> arguments = ParseArguments(Console::Arguments(argc, argv), status);
    if (!arguments)
        return status;
    if (arguments->ShowLog)
        ShowLog();
    return ReportOne(*arguments);
}

} // namespace

} // namespace SmbiosTree

int main(int argc, char** argv)
{
    using namespace SmbiosTree;
    Console::PrepareStreams();
    try {
        return Run(argc, argv);
    } catch (const OutputFailure& failure) {
        Complain("standard output", std::string(failure.what()) + "; the output is not complete");
    } catch (const std::bad_alloc&) {
        Complain("standard output", "there is not enough memory for the report; free some and try again");
    }
    return Failed;
}
