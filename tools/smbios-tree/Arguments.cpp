#include "Arguments.h"

#include "Console.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <utility>

namespace SmbiosTree {

namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

const std::map<std::string, Version> Versions{{"2.3", {2, 3}}, {"2.4", {2, 4}}, {"2.5", {2, 5}},
                                              {"2.6", {2, 6}}, {"2.7", {2, 7}}, {"2.8", {2, 8}},
                                              {"3.0", {3, 0}}};

enum class Colours { Auto, Always, Never };

const std::map<std::string, Colours> ColourWords{
    {"auto", Colours::Auto}, {"always", Colours::Always}, {"never", Colours::Never}};

bool UseColours(Colours wanted)
{
    if (wanted != Colours::Auto)
        return wanted == Colours::Always;
    const char* const noColour = std::getenv("NO_COLOR");
    return (noColour == nullptr || *noColour == '\0') && Console::ShowsColours();
}

// The words of a table, as a check that says them when it fails.
template <typename Value>
CLI::IsMember OneOf(const std::map<std::string, Value>& table)
{
    std::vector<std::string> words;
    words.reserve(table.size());
    for (const auto& entry : table)
        words.push_back(entry.first);
    return CLI::IsMember(words);
}

// The options that are words until all of them are known.
struct Words {
    std::string ReadAs;
    std::string Colours = "auto";
    std::map<Output, bool> Outputs;
};

constexpr const char* Footer =
    R"(An INPUT is a table image (the table, with a 32-bit entry point behind it), a dump
(an entry point, and the table at offset 32), a folder with the files
smbios_entry_point and DMI, or "-" for standard input. Without an INPUT, the tree
is the running machine's.

Exit status: 0, or 1 where an input failed, 2 for wrong usage. With --diff: 0 where
the trees are the same, 1 where they differ, 2 for trouble.)";

void AddOptions(CLI::App& app, Arguments& arguments, Words& words)
{
    app.set_version_flag("--version", "smbios-tree " SMBIOS_TREE_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.footer(Footer);
    app.allow_windows_style_options(false); // a node's path begins with a slash
    app.add_option("INPUT", arguments.Inputs, "Where to read the table from");
    app.add_option("--path", arguments.Path, "Show the subtree at this path alone, such as /SMBIOS/Type17[1]")
        ->type_name("PATH");
    app.add_option("--read-as", words.ReadAs,
                   "Read the table as this version, whatever its own: 3.0 for a newer one")
        ->type_name("VERSION")
        ->check(OneOf(Versions));
    app.add_flag("--flat", words.Outputs[Output::Flat], "Print a line \"path = value\" for each value");
    app.add_flag("--json", words.Outputs[Output::Json], "Print a JSON document");
    app.add_flag("--jsonl", words.Outputs[Output::JsonLines],
                 "Print a JSON document of one line for each input");
    app.add_flag("--html", words.Outputs[Output::Html], "Print a page for the browser");
    app.add_flag("--diff", words.Outputs[Output::Diff],
                 "Print what changed from the first input to the second");
    app.add_option("--color", words.Colours, "Colour the output: auto, always or never")
        ->type_name("WHEN")
        ->check(OneOf(ColourWords));
    app.add_flag("--log", arguments.ShowLog, "Show the library's log on standard error");
}

void Interpret(const Words& words, Arguments& arguments)
{
    for (const auto& [output, isWanted] : words.Outputs) {
        if (!isWanted)
            continue;
        if (arguments.Output != Output::Indented)
            throw CLI::ValidationError("only one of --flat, --json, --jsonl, --html and --diff is possible");
        arguments.Output = output;
    }
    if (!words.ReadAs.empty())
        arguments.ReadAs = Versions.at(words.ReadAs);
    arguments.Style.HasColours = UseColours(ColourWords.at(words.Colours));
}

// What the options alone cannot say.
void CheckInputs(const Arguments& arguments)
{
    const std::size_t count = arguments.Inputs.size();
    if (arguments.Output == Output::Diff && count != 2)
        throw CLI::ValidationError("--diff needs two inputs");
    if (arguments.Output != Output::Diff && arguments.Output != Output::JsonLines && count > 1)
        throw CLI::ValidationError("several inputs need --jsonl, or --diff for two");
    if (arguments.ReadAs && count == 0)
        throw CLI::ValidationError(
            "--read-as needs an input; on Linux, /sys/firmware/dmi/tables is the running machine's");
}

// Prints the help or the version. Gives the exit status.
int Answer(const CLI::App& app, const CLI::Success& question)
{
    app.exit(question, std::cout, std::cerr);
    if (std::cout.flush())
        return Done;
    std::cerr << "smbios-tree: standard output: it cannot be written; the output is not complete\n";
    return Failed;
}

} // namespace

std::optional<Arguments> ParseArguments(std::vector<std::string> line, int& status)
{
    Arguments arguments;
    arguments.Path = RootPath;
    Words words;
    CLI::App app("Shows a machine's SMBIOS data as a tree of named values.", "smbios-tree");
    AddOptions(app, arguments, words);
    try {
        std::reverse(line.begin(), line.end()); // as the parser takes it
        app.parse(std::move(line));
        Interpret(words, arguments);
        CheckInputs(arguments);
        return arguments;
    } catch (const CLI::Success& question) {
        status = Answer(app, question);
    } catch (const CLI::ParseError& error) {
        std::cerr << "smbios-tree: " << error.what() << "; see smbios-tree --help\n";
        status = WrongUsage;
    }
    return std::nullopt;
}

} // namespace SmbiosTree
