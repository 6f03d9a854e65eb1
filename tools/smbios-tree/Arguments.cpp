#include "Arguments.h"

#include "Console.h"
#include "Text.h"
#include "Types.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
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
    std::vector<std::string> Types;
    std::string ReadAs;
    std::string Colours = "auto";
    std::string InputsFile;
    std::uint64_t Limit = 0;
    std::map<SmbiosTree::Form, bool> Forms;
    bool EndsInNul = false;
    bool Newest = false;
    bool ByVersion = false;
};

// Makes bytes of "64MiB". Gives what is wrong with it.
std::string ToBytes(std::string& size)
{
    constexpr std::size_t MostDigits = 18;
    const std::size_t digits = std::min(size.find_first_not_of("0123456789"), size.size());
    const std::string unit = size.substr(digits);
    if (digits == 0 || digits > MostDigits || unit.find_first_of("0123456789.") != std::string::npos)
        return "\"" + size + "\" is no size, such as 4096 or 64MiB";
    size = std::to_string(std::stoull(size)) + unit; // with a zero in front it would be octal
    return CLI::AsSizeValue(false)(size);
}

constexpr const char* Usage =
    R"(Usage: smbios-tree [OPTION]... [INPUT]
       smbios-tree --jsonl [OPTION]... [INPUT]...
       smbios-tree --diff [OPTION]... INPUT INPUT
)";

constexpr const char* Footer =
    R"(An INPUT is a file, a folder with the files smbios_entry_point and DMI, or "-" for
standard input. A file holds a dump (an entry point, the table at offset 32), the
block of Windows' registry, a table with a 32-bit entry point behind it, or a table
alone. Without an INPUT, the tree is the running machine's.

Lines of --diff: "- path = value" is in the first input alone, "+" in the second
alone; where a value changed, "<" has the old one and ">" the new one.

Exit status: 0, or 1 where an input failed, 2 for wrong usage. With --diff: 0 where
the trees are the same, 1 where they differ, 2 for trouble.)";

class HelpFormatter : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override { return Usage; }
};

void AddChoices(CLI::App& app, Arguments& arguments, Words& words)
{
    app.add_option("--path", arguments.Choice.Path,
                   "Show the subtree at this path alone, such as /SMBIOS/Type17[1]")
        ->type_name("PATH");
    app.add_option(
           "-t,--type", words.Types,
           "Show the structures of this type alone, by number or word: memory, processor, ...; may be "
           "given several times")
        ->type_name("TYPE")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    app.add_flag("--by-version", words.ByVersion,
                 "Read by the table's version, for programs that rely on those paths;\nwithout this option, "
                 "all that the newest standard knows is read");
    app.add_option("--read-as", words.ReadAs, "The same, as this version instead of the table's own")
        ->type_name("VERSION")
        ->check(OneOf(Versions));
    app.add_flag("--newest", words.Newest, "Read all that the newest standard knows: the default");
}

void AddForms(CLI::App& app, Arguments& arguments, Words& words)
{
    app.add_flag("--flat", words.Forms[Form::Flat], "Print a line \"path = value\" for each value");
    app.add_flag("--value", words.Forms[Form::Value],
                 "Print the bare value at --path, its bytes as they are");
    app.add_flag("--json", words.Forms[Form::Json], "Print a JSON document");
    app.add_flag("--jsonl", words.Forms[Form::JsonLines], "Print a JSON document of one line for each input");
    app.add_flag("--html", words.Forms[Form::Html], "Print a page for the browser");
    app.add_flag("--diff", words.Forms[Form::Diff], "Print what changed from the first input to the second");
    app.add_option("--dump", arguments.DumpFile, "Save the table in this new file, as a dump; print nothing")
        ->type_name("FILE");
}

void AddOthers(CLI::App& app, Arguments& arguments, Words& words)
{
    app.add_option("--inputs", words.InputsFile,
                   "With --jsonl: take further inputs from this file, one a line;\n\"-\" for standard input")
        ->type_name("FILE");
    app.add_flag("-0,--null", words.EndsInNul, "The names of --inputs end in a NUL instead of a line feed");
    app.add_option("--limit", words.Limit,
                   "Let an input fail whose output would be larger: bytes, or with a\nunit such as 64MiB")
        ->option_text("SIZE")
        ->transform(CLI::Validator(ToBytes, ""));
    app.add_option("--color", words.Colours, "Colour the output: auto, always or never")
        ->type_name("WHEN")
        ->check(OneOf(ColourWords));
    app.add_flag("--log", arguments.ShowLog, "Show the library's log on standard error");
}

void AddOptions(CLI::App& app, Arguments& arguments, Words& words)
{
    app.set_version_flag("-V,--version", "smbios-tree " SMBIOS_TREE_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(Footer);
    app.allow_windows_style_options(false); // a node's path begins with a slash
    app.allow_extras();                     // the inputs
    AddChoices(app, arguments, words);
    AddForms(app, arguments, words);
    AddOthers(app, arguments, words);
}

// Every argument is one name, whatever is in it: a list of the parser's own would give brackets a meaning. So
// the inputs are what the parser leaves, and what stands behind "--".
std::vector<std::string> Parse(CLI::App& app, std::vector<std::string> line)
{
    const auto mark = std::find(line.begin(), line.end(), "--");
    const std::vector<std::string> behind(mark == line.end() ? mark : mark + 1, line.end());
    line.erase(mark, line.end());
    std::reverse(line.begin(), line.end()); // as the parser takes it
    app.parse(std::move(line));
    std::vector<std::string> inputs = app.remaining();
    for (const std::string& input : inputs) {
        if (input.size() > 1 && input.front() == '-')
            throw CLI::ValidationError("there is no option " + input);
    }
    inputs.insert(inputs.end(), behind.begin(), behind.end());
    return inputs;
}

unsigned int TypeOfWord(const std::string& word)
{
    const std::optional<unsigned int> type = TypeOf(word);
    if (!type)
        throw CLI::ValidationError("--type: there is no \"" + word +
                                   "\"; there are the numbers 0 to 255, and " + WordsOfTypes());
    return *type;
}

Form FormOf(const Words& words, const CLI::App& app)
{
    Form wanted = app.count("--dump") == 0 ? Form::Indented : Form::Dump;
    for (const auto& [form, isWanted] : words.Forms) {
        if (!isWanted)
            continue;
        if (wanted != Form::Indented)
            throw CLI::ValidationError(
                "only one of --flat, --value, --json, --jsonl, --html, --diff and --dump is possible");
        wanted = form;
    }
    return wanted;
}

Manner MannerOf(const Words& words)
{
    Manner manner;
    if (!words.ReadAs.empty())
        manner.ReadAs = Versions.at(words.ReadAs);
    if (words.Newest && (words.ByVersion || manner.ReadAs))
        throw CLI::ValidationError("--newest does not go with --by-version or --read-as");
    manner.ByVersion = words.ByVersion || manner.ReadAs;
    return manner;
}

void Interpret(const Words& words, const CLI::App& app, Arguments& arguments)
{
    arguments.Form = FormOf(words, app);
    arguments.Manner = MannerOf(words);
    for (const std::string& word : words.Types)
        arguments.Choice.Types.push_back(TypeOfWord(word));
    if (app.count("--inputs") != 0)
        arguments.InputsFile = words.InputsFile;
    if (words.EndsInNul)
        arguments.InputsEnd = '\0';
    if (app.count("--limit") != 0)
        arguments.Limit = words.Limit;
    arguments.Style.HasColours = UseColours(ColourWords.at(words.Colours));
}

// What no option alone can say.
void Check(const Arguments& arguments, const CLI::App& app)
{
    const std::size_t count = arguments.Inputs.size();
    const bool isLines = arguments.Form == Form::JsonLines;
    if (arguments.Form == Form::Diff && count != 2)
        throw CLI::ValidationError("--diff needs two inputs");
    if (arguments.Form != Form::Diff && !isLines && count > 1)
        throw CLI::ValidationError("several inputs need --jsonl, or --diff for two");
    if (!isLines && (arguments.InputsFile || app.count("--null") != 0))
        throw CLI::ValidationError("--inputs and --null need --jsonl");
    const bool readsStandardInput =
        std::find(arguments.Inputs.begin(), arguments.Inputs.end(), "-") != arguments.Inputs.end();
    if (arguments.InputsFile == "-" && readsStandardInput)
        throw CLI::ValidationError("standard input cannot be both a table and the list of --inputs");
    if (!arguments.Choice.Types.empty() && app.count("--path") != 0)
        throw CLI::ValidationError("only one of --path and --type is possible");
    if (arguments.Form == Form::Value && app.count("--path") == 0)
        throw CLI::ValidationError("--value needs --path");
    if (arguments.Form == Form::Dump && arguments.DumpFile.empty())
        throw CLI::ValidationError("--dump needs the name of a new file");
    for (const char* const option : {"--path", "--type", "--newest", "--by-version", "--limit"}) {
        if (arguments.Form == Form::Dump && app.count(option) != 0)
            throw CLI::ValidationError(std::string(option) +
                                       " does not go with --dump, which saves the whole table");
    }
}

// The words of a list that may stand behind an option, a line each.
std::string LinesBehind(const CLI::Option& option)
{
    if (option.check_lname("type"))
        return LinesOfWords();
    if (option.check_lname("path"))
        return "/SMBIOS/ProcessorInfo\tthe processors\n/SMBIOS/MemoryArray\tthe memory arrays\n" +
               LinesOfPaths();
    if (option.check_lname("limit"))
        return "1MiB\n16MiB\n64MiB\n";
    // What has a check tells its words as "WHEN:{always,auto,never}".
    const std::string type = option.get_type_name();
    const std::size_t first = type.find('{');
    if (first == std::string::npos)
        return "";
    std::string lines = type.substr(first + 1, type.find('}') - first - 1) + '\n';
    std::replace(lines.begin(), lines.end(), ',', '\n');
    return lines;
}

// The names of all options, a line each with a tab and what the option does.
std::string LinesOfOptions(const CLI::App& app)
{
    std::string lines;
    for (const CLI::Option* const option : app.get_options()) {
        std::string rest = '\t' + option->get_description();
        std::replace(rest.begin(), rest.end(), '\n', ' ');
        rest += '\n';
        for (const std::string& name : option->get_lnames())
            lines.append("--").append(name).append(rest);
        for (const std::string& name : option->get_snames())
            lines.append("-").append(name).append(rest);
    }
    return lines;
}

// What a shell may offer for a word that stands behind another: nothing where that is the name of a file.
std::string LinesToComplete(const CLI::App& app, const std::string& before, const std::string& word)
{
    const CLI::Option* const option = app.get_option_no_throw(before);
    if (option != nullptr && option->get_items_expected() != 0)
        return LinesBehind(*option);
    return word.compare(0, 1, "-") == 0 ? LinesOfOptions(app) : "";
}

// Prints the text. Gives the exit status.
int Print(const std::string& text)
{
    try {
        Output out;
        out.Append(text);
        out.Finish();
        return Done;
    } catch (const OutputFailure& failure) {
        std::fprintf(stderr, "smbios-tree: standard output: %s\n", failure.what());
        return Failed;
    }
}

// Prints the help or the version. Gives the exit status.
int Answer(const CLI::App& app, const CLI::Success& question)
{
    std::ostringstream text;
    app.exit(question, text, text);
    return Print(text.str());
}

} // namespace

std::optional<Arguments> ParseArguments(std::vector<std::string> line, int& status)
{
    Arguments arguments;
    Words words;
    CLI::App app("Shows a machine's SMBIOS data as a tree of named values.", "smbios-tree");
    AddOptions(app, arguments, words);
    if (!line.empty() && line.front() == "--complete") { // BEFORE WORD: the shells' completion asks
        line.resize(3);
        status = Print(LinesToComplete(app, line[1], line[2]));
        return std::nullopt;
    }
    try {
        arguments.Inputs = Parse(app, std::move(line));
        Interpret(words, app, arguments);
        Check(arguments, app);
        return arguments;
    } catch (const CLI::Success& question) {
        status = Answer(app, question);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "smbios-tree: %s; see smbios-tree --help\n", Visible(error.what()).c_str());
        status = WrongUsage;
    }
    return std::nullopt;
}

} // namespace SmbiosTree
