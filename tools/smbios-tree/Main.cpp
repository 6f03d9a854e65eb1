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

// As diff has them.
constexpr int Different = 1;
constexpr int DiffTrouble = 2;

using Input = std::optional<std::string>; ///< nothing: the running machine

std::string NameOf(const Input& input)
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
        throw OutputFailure((errno != 0 ? std::strerror(errno) : std::string("it cannot be written")) +
                            "; the output is not complete");
}

void ShowLog()
{
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    logger.TraceLocks = true;
    logger.SetSink([](const LOGGER::LogLine& line) {
        std::fprintf(stderr, "%s: %s\n", line.Function, line.Message.c_str());
    });
}

std::string Report(Protocol::SMBIOS::ISMBIOSProtocol& protocol, const std::string& name,
                   const Arguments& arguments)
{
    const Tree tree = Subtree(protocol, arguments.Path);
    switch (arguments.Output) {
    case Output::Flat:
        return Flat(tree.Top(), arguments.Style);
    case Output::Json:
        return Json(tree.Top());
    case Output::Html:
        if (arguments.Path == RootPath)
            return Html(tree.Top(), tree.Top(), name);
        return Html(Subtree(protocol, RootPath).Top(), tree.Top(), name);
    default:
        return Indented(tree.Top(), arguments.Style);
    }
}

int ReportOne(const Input& input, const Arguments& arguments)
{
    try {
        Print(Report(*Open(input, arguments.ReadAs), NameOf(input), arguments));
        return Done;
    } catch (const Failure& failure) {
        Complain(NameOf(input), failure.what());
        return Failed;
    }
}

std::string Line(const Input& input, const Arguments& arguments, int& status)
{
    try {
        return JsonLine(input, Subtree(*Open(input, arguments.ReadAs), arguments.Path).Top());
    } catch (const Failure& failure) {
        status = Failed;
        return JsonLine(input, failure);
    } catch (const std::bad_alloc&) {
        status = Failed;
        return JsonLine(input, OutOfMemory());
    }
}

// A failing input fails alone: its line says why, and the next one has its turn.
int ReportLines(const std::vector<Input>& inputs, const Arguments& arguments)
{
    int status = Done;
    for (const Input& input : inputs)
        Print(Line(input, arguments, status));
    return status;
}

// The two sides' subtrees. What one side alone has at the path is a difference, not a failure.
int ReportDifferences(const Input& before, const Input& after, const Arguments& arguments)
{
    std::optional<Tree> sides[2];
    for (const Input* input : {&before, &after}) {
        try {
            const auto protocol = Open(*input, arguments.ReadAs);
            if (input == &before)
                sides[0] = FindSubtree(*protocol, arguments.Path);
            else
                sides[1] =
                    sides[0] ? FindSubtree(*protocol, arguments.Path) : Subtree(*protocol, arguments.Path);
        } catch (const Failure& failure) {
            Complain(NameOf(*input), failure.what());
            return DiffTrouble;
        }
    }
    const std::string lines = Differences(sides[0], sides[1], arguments.Style);
    Print(lines);
    return lines.empty() ? Done : Different;
}

int Run(const Arguments& arguments)
{
    std::vector<Input> inputs(arguments.Inputs.begin(), arguments.Inputs.end());
    if (inputs.empty())
        inputs.emplace_back();
    switch (arguments.Output) {
    case Output::JsonLines:
        return ReportLines(inputs, arguments);
    case Output::Diff:
        return ReportDifferences(inputs[0], inputs[1], arguments);
    default:
        return ReportOne(inputs.front(), arguments);
    }
}

// What no input is to blame for.
int RunGuarded(const Arguments& arguments)
{
    try {
        return Run(arguments);
    } catch (const OutputFailure& failure) {
        Complain("standard output", failure.what());
    } catch (const std::bad_alloc&) {
        Complain("standard output", OutOfMemory().what());
    }
    return arguments.Output == Output::Diff ? DiffTrouble : Failed;
}

} // namespace

} // namespace SmbiosTree

int main(int argc, char** argv)
{
    using namespace SmbiosTree;
    Console::PrepareStreams();
    int status = Done;
    const std::optional<Arguments> arguments = ParseArguments(Console::Arguments(argc, argv), status);
    if (!arguments)
        return status;
    if (arguments->ShowLog)
        ShowLog();
    return RunGuarded(*arguments);
}
