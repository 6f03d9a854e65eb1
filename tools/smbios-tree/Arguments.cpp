#include "Arguments.h"

#include "Console.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>

namespace SmbiosTree {

namespace {

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
    for (const auto& entry : table)
        words.push_back(entry.first);
    return CLI::IsMember(words);
}

// What the options alone cannot say.
std::string Contradiction(const Arguments& arguments)
{
    const std::size_t count = arguments.Inputs.size();
    if (arguments.Output == Output::Diff && count != 2)
        return "--diff needs two inputs";
    if (arguments.Output != Output::Diff && arguments.Output != Output::JsonLines && count > 1)
        return "several inputs need --jsonl, or --diff for two";
    if (arguments.ReadAs && count == 0)
        return "--read-as needs an input; on Linux, /sys/firmware/dmi/tables is the running machine's";
    return {};
}

constexpr const char* Footer = "An INPUT is a table image (the table, with a 32-bit entry point behind it), "
                               "a dump (an entry point, and\n"
                               "the table at offset 32), a folder with the files smbios_entry_point and DMI, "
                               "or \"-\" for standard input.\n"
                               "Without an INPUT, the tree is the running machine's.\n\n"
                               "Exit status: 0, or 1 where an input failed, 2 for wrong usage. With --diff: "
                               "0 where the trees are the same,\n"
                               "1 where they differ, 2 for trouble.";

} // namespace

std::optional<Arguments> ParseArguments(std::vector<std::string> words, int& status)
{
    Arguments arguments;
    arguments.Path = RootPath;
    std::string readAs;
    std::string colours = "auto";
    std::map<Output, bool> outputs;

    CLI::App app("Shows a machine's SMBIOS data as a tree of named values.", "smbios-tree");
    app.set_version_flag("--version", "smbios-tree " SMBIOS_TREE_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.footer(Footer);
    app.allow_windows_style_options(false); // a node's path begins with a slash
    app.add_option("INPUT", arguments.Inputs, "Where to read the table from");
    app.add_option("--path", arguments.Path, "Show the subtree at this path alone, such as /SMBIOS/Type17[1]")
        ->type_name("PATH");
    app.add_option("--read-as", readAs,
                   "Read the table as this version, whatever its own: 3.0 for a newer one")
        ->type_name("VERSION")
        ->check(OneOf(Versions));
    app.add_flag("--flat", outputs[Output::Flat], "Print a line \"path = value\" for each value");
    app.add_flag("--json", outputs[Output::Json], "Print a JSON document");
    app.add_flag("--jsonl", outputs[Output::JsonLines], "Print a JSON document of one line for each input");
    app.add_flag("--html", outputs[Output::Html], "Print a page for the browser");
    app.add_flag("--diff", outputs[Output::Diff], "Print what changed from the first input to the second");
    app.add_option("--color", colours, "Colour the output: auto, always or never")
        ->type_name("WHEN")
        ->check(OneOf(ColourWords));
    app.add_flag("--log", arguments.ShowLog, "Show the library's log on standard error");

    try {
        std::reverse(words.begin(), words.end());
        app.parse(words);
    } catch (const CLI::Success& success) {
        status = app.exit(success, std::cout, std::cerr);
        if (!std::cout.flush()) {
            std::cerr << "smbios-tree: standard output: it cannot be written; the output is not complete\n";
            status = Failed;
        }
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::cerr << "smbios-tree: " << error.what() << "; see smbios-tree --help\n";
        status = WrongUsage;
        return std::nullopt;
    }

    std::size_t wantedOutputs = 0;
    for (const auto& [output, isWanted] : outputs) {
        if (isWanted) {
            arguments.Output = output;
            ++wantedOutputs;
        }
    }
    if (!readAs.empty())
        arguments.ReadAs = Versions.at(readAs);
    arguments.Style.HasColours = UseColours(ColourWords.at(colours));
    const std::string contradiction =
        wantedOutputs > 1 ? "only one of --flat, --json, --jsonl, --html and --diff is possible"
                          : Contradiction(arguments);
    if (!contradiction.empty()) {
        std::cerr << "smbios-tree: " << contradiction << "; see smbios-tree --help\n";
        status = WrongUsage;
        return std::nullopt;
    }
    return arguments;
}

} // namespace SmbiosTree
