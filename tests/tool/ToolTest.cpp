// smbios-tree as a person runs it: arguments and files in; text, messages and an exit status out.

#include "support/Parts.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using namespace TestImages;

struct Outcome {
    int Status;
    std::string Out;
    std::string Err;
};

std::string ReadText(const fs::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

Bytes operator+(const Bytes& left, const Bytes& right)
{
    return Join(left, right);
}

// An entry point in a dump, with the table 32 bytes behind its start.
Bytes Padded(Bytes entryPoint)
{
    entryPoint.resize(32);
    return entryPoint;
}

Structure System(const std::string& manufacturer, const std::string& product)
{
    return StructureOf(1, 1, manufacturer, product, "v1", "", Bytes(16), 6, "", "");
}

std::vector<Structure> Machine(const Structure& system)
{
    return {system,
            Processor(0x10, 0x20),
            Processor(0x11, 0x20, 0xFFFF, 0),
            Cache(0x20, "L1"),
            MemoryArray(0x30),
            MemoryArray(0x31),
            MemoryDevice(0x30, 2048, "A"),
            MemoryDevice(0x30, 0, "B"),
            MemoryDevice(0x31, 4096, "C")};
}

// Bytes that are no text: controls, a terminal's sequence, Latin-1, a surrogate, an overlong form, half a
// character.
const std::string Odd =
    "a\\b\tc\nd\x01\x7F \x1B[31m \xC2\x9B \xE9 \xED\xA0\x80 \xC0\xAF \xE2\x98\x83 \xE2\x98";
const std::string Markup = "</script><img src=x onerror=alert(1)>&amp;\"'";

class Tool : public testing::Test {
protected:
    void SetUp() override
    {
        Folder = fs::path(testing::TempDir()) / ("smbios-tree-" + std::to_string(getpid()));
        fs::create_directories(Folder);
        fs::current_path(Folder);
    }
    void TearDown() override
    {
        fs::current_path(testing::TempDir());
        fs::remove_all(Folder);
    }

    static void Put(const fs::path& path, const Bytes& bytes)
    {
        if (path.has_parent_path())
            fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    // The words behind the program's name, as the shell takes them. In `front`, what stands before the name.
    static Outcome Run(const std::string& words, const std::string& front = "")
    {
        const std::string command =
            "{ " + front + " '" SMBIOS_TREE "' " + words + "; } >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadText("out"), ReadText("err")};
    }

    fs::path Folder;
};

TEST_F(Tool, ReadsEveryFormOfInput)
{
    const Bytes table = Table(Machine(System("Maker", "Machine")));
    const Bytes ep32 = EntryPoint(2, 7, table.size());
    const Bytes ep64 = EntryPoint64(3, 0, table.size());
    Put("image", Image(table, 2, 7));
    Put("image-3.4", Image(table, 3, 4));
    Put("dump-32", Padded(ep32) + table);
    Put("dump-32-and-more", Padded(ep32) + table + Bytes(99, 0xAB));
    Put("dump-64", Padded(ep64) + table);
    Put("dump-64-roomy", Padded(EntryPoint64(3, 0, 200'000)) + table + Bytes(200'000, 0xAB));
    Put("dump-64-3.4", Padded(EntryPoint64(3, 4, table.size())) + table);
    Put("folder-32/smbios_entry_point", ep32);
    Put("folder-32/DMI", table);
    // As some firmware does, and the kernel then publishes it.
    Put("folder-30/smbios_entry_point", WithLength(ep32, 30));
    Put("folder-30/DMI", table);
    Put("folder-64/smbios_entry_point", ep64);
    Put("folder-64/DMI", table);

    const Outcome wanted = Run("image");
    ASSERT_EQ(wanted.Status, 0) << wanted.Err;
    ASSERT_EQ(wanted.Out.rfind("SMBIOS\n  Type0\n  Type1\n    Manufacturer: Maker\n", 0), 0U) << wanted.Out;
    for (const char* const words :
         {"dump-32", "dump-32-and-more", "dump-64", "dump-64-roomy", "folder-32", "folder-30", "folder-64/",
          "- <image", "- <dump-64", "--read-as 3.0 image-3.4", "--read-as=2.7 dump-64-3.4",
          "--read-as 2.8 folder-32", "--path /SMBIOS image"}) {
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.Status, 0) << words;
        EXPECT_EQ(outcome.Out, wanted.Out) << words;
        EXPECT_EQ(outcome.Err, "") << words;
    }
    // An older catalogue has no fields of later revisions.
    EXPECT_NE(wanted.Out.find("ExtendedSize"), std::string::npos);
    EXPECT_EQ(Run("--read-as 2.3 image").Out.find("ExtendedSize"), std::string::npos);
}

TEST_F(Tool, SaysInOneLineWhatFailedAndWhatToDo)
{
    const Bytes table = Table({System("Maker", "Machine")});
    const Bytes dump32 = Padded(EntryPoint(2, 7, table.size())) + table;
    const Bytes dump64 = Padded(EntryPoint64(3, 0, table.size())) + table;
    const auto damaged = [](Bytes bytes, std::size_t offset) {
        bytes[offset] ^= 1;
        return bytes;
    };
    std::vector<Structure> explosive(400, MemoryArray(1));
    explosive.insert(explosive.end(), 400, MemoryDevice(1, 1, ""));
    Put("image", Image(table, 2, 7));
    Put("bare-table", table);
    Put("large", Image(table, 2, 7) + Bytes(65'536));
    Put("huge", Bytes(17U << 20));
    Put("large-dump", Padded(EntryPoint64(3, 0, 90'000)) + Bytes(90'000, 0x7E));
    Put("version-3.4", Image(table, 3, 4));
    Put("version-2.1", Image(table, 2, 1));
    Put("damaged", damaged(Image(table, 2, 7), table.size() + 9));
    Put("damaged-64", damaged(dump64, 9));
    Put("short-32", {dump32.begin(), dump32.end() - 3});
    Put("short-64", {dump64.begin(), dump64.end() - 3});
    Put("short-entry", {dump32.begin(), dump32.begin() + 12});
    Put("no-table", {dump32.begin(), dump32.begin() + 32});
    Put("anchored", Padded(EntryPoint64(3, 0, 999)) + Table({System("_SM_", "Machine")}));
    Put("explosive", Image(explosive));
    Put("half/smbios_entry_point", EntryPoint(2, 7, table.size()));
    Put("strange/smbios_entry_point", Bytes(31, 'x'));
    Put("strange/DMI", table);
    Put("nothing/else", {1});

    const struct {
        const char* Words;
        int Status;
        const char* What;
        const char* ToDo;
    } cases[] = {
        {"missing", 1, "missing: No such file", "check the name"},
        {"-", 1, "standard input: it is empty", "take the table again"},
        {"bare-table", 1, "no complete 32-bit entry point", "give a table with one behind it"},
        {"large", 1, "bytes; at most 65535", "cut off"},
        {"huge", 1, "more than 16 MiB", "give a table image"},
        {"large-dump", 1, "a table of 90000 bytes", "cut it"},
        {"version-3.4", 1, "version 3.4 is not supported", "--read-as 3.0"},
        {"version-2.1", 1, "version 2.1 is not supported", "--read-as 2.3"},
        {"damaged", 1, "the checksum of the entry point is wrong", "again"},
        {"--read-as 3.0 damaged", 1, "the checksum of the entry point is wrong", "again"},
        {"damaged-64", 1, "the checksum of the entry point is wrong", "again"},
        {"short-32", 1, "the table is cut off after", "take the dump again"},
        {"short-64", 1, "the table is cut off after", "take the dump again"},
        {"short-entry", 1, "ends within the entry point", "take the dump again"},
        {"no-table", 1, "ends before the table", "take the dump again"},
        {"anchored", 1, "reads \"_SM_\"", "change it"},
        {"explosive", 1, "its tree would be too large", "made to do harm"},
        {"half", 1, "half: DMI: No such file", "check the name"},
        {"strange", 1, "neither \"_SM_\" nor \"_SM3_\"", "take it again"},
        {"nothing", 1, "a folder without", "/sys/firmware/dmi/tables"},
        {"--path '/SMBIOS/Type17[9]/Size' image", 1, "nothing is at the path \"/SMBIOS/Type17[9]/Size\"",
         "--path /SMBIOS/Type17\n"},
        {"--diff image missing", 2, "missing: No such file", "check the name"},
        {"image >/dev/full", 1, "standard output: No space left", "not complete"},
        {"image >&-", 1, "standard output: Bad file descriptor", "not complete"},
        {"--diff image image version-2.1", 2, "--diff needs two inputs", "--help"},
        {"image image", 2, "several inputs need --jsonl", "--help"},
        {"--json --flat image", 2, "only one of", "--help"},
        {"--read-as 3.1 image", 2, "3.1", "--help"},
        {"--read-as 3.0", 2, "--read-as needs an input", "/sys/firmware/dmi/tables"},
        {"--color=blue image", 2, "blue", "--help"},
    };
    for (const auto& [words, status, what, toDo] : cases) {
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.Status, status) << words;
        EXPECT_EQ(outcome.Out, "") << words;
        EXPECT_EQ(outcome.Err.rfind("smbios-tree: ", 0), 0U) << words << ": " << outcome.Err;
        EXPECT_EQ(std::count(outcome.Err.begin(), outcome.Err.end(), '\n'), 1) << outcome.Err;
        EXPECT_NE(outcome.Err.find(what), std::string::npos) << words << ": " << outcome.Err;
        EXPECT_NE(outcome.Err.find(toDo), std::string::npos) << words << ": " << outcome.Err;
    }
}

TEST_F(Tool, ShowsEveryByteOfAText)
{
    Put("odd", Image(Machine(System(Odd, Markup))));
    const std::string shown = "a\\\\b\\tc\\nd\\x01\\x7F \\x1B[31m \\xC2\\x9B \\xE9 \\xED\\xA0\\x80 "
                              "\\xC0\\xAF \xE2\x98\x83 \\xE2\\x98\n";
    EXPECT_EQ(Run("odd --path /SMBIOS/Type1/Manufacturer").Out, "Manufacturer: " + shown);
    EXPECT_EQ(Run("odd --flat --path /SMBIOS/Type1/Manufacturer").Out,
              "/SMBIOS/Type1/Manufacturer = " + shown);
    EXPECT_EQ(Run("odd --path /SMBIOS/Type1/SerialNo").Out, "SerialNo:\n");
    EXPECT_EQ(Run("odd --path '/SMBIOS/Type4[1]/Characteristics/Power/Performance Control'").Out,
              "Power/Performance Control: Not Supported\n");
    EXPECT_EQ(Run("odd --path '/SMBIOS/Type4[1]/VoltageCapability'").Out,
              "VoltageCapability: 5VSupported\\n\\t\\t3.3VSupported\\n\\t\\t\n");

    const std::string page = Run("odd --html").Out;
    EXPECT_EQ(page.find("<img"), std::string::npos);
    EXPECT_EQ(page.find("</script>"), page.rfind("</script>"));
    EXPECT_NE(page.find("&lt;/script&gt;&lt;img src=x onerror=alert(1)&gt;&amp;amp;&quot;&#39;"),
              std::string::npos);
    EXPECT_EQ(page.find("://"), std::string::npos) << "the page names something outside itself";
}

// The leaves of a document by path, each with its exact bytes.
void Flatten(const json& document, const std::string& path, std::map<std::string, std::string>& leaves)
{
    if (document.is_string()) {
        leaves[path] = document;
    } else if (document.is_array()) {
        for (std::size_t i = 0; i < document.size(); ++i)
            Flatten(document[i], path + "[" + std::to_string(i + 1) + "]", leaves);
    } else if (document.contains("bytes")) {
        const std::string digits = document["bytes"];
        std::string& bytes = leaves[path];
        for (std::size_t i = 0; i < digits.size(); i += 2)
            bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    } else {
        for (const auto& [name, child] : document.items())
            Flatten(child, name == "Instances" ? path : path + "/" + name, leaves);
    }
}

std::string Unescaped(const std::string& text)
{
    const std::map<char, char> letters{{'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
        } else if (text[++i] == 'x') {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            bytes += letters.at(text[i]);
        }
    }
    return bytes;
}

TEST_F(Tool, JsonHasWhatTheFlatFormHas)
{
    Put("odd", Image(Machine(System(Odd, Markup))));
    for (const std::string path :
         {"/SMBIOS", "/SMBIOS/Type17", "/SMBIOS/MemoryArray", "/SMBIOS/MemoryArray[1]",
          "/SMBIOS/Type1/Manufacturer", "/SMBIOS/Type4[1]/ProcessorFamily_Raw"}) {
        const std::string words = "odd --path '" + path + "'";
        const std::string text = Run(words + " --json").Out;
        EXPECT_TRUE(std::all_of(text.begin(), text.end(),
                                [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
        std::map<std::string, std::string> fromJson;
        Flatten(json::parse(text), path, fromJson);

        std::map<std::string, std::string> fromFlat;
        std::istringstream lines(Run(words + " --flat").Out);
        for (std::string line; std::getline(lines, line);)
            fromFlat[line.substr(0, line.find(" = "))] = Unescaped(line.substr(line.find(" = ") + 3));
        EXPECT_FALSE(fromFlat.empty()) << path;
        EXPECT_EQ(fromJson, fromFlat) << path;
    }

    const json document = json::parse(Run("odd --json").Out);
    EXPECT_EQ(document["Type17"].size(), 3U);
    EXPECT_EQ(document["Type9"], json::object());
    EXPECT_EQ(document["MemoryArray"]["TotalNoOfArray"], "2");
    EXPECT_EQ(document["MemoryArray"]["Instances"][0]["MemoryDevice"][1]["Size"], "0");
    EXPECT_EQ(document["ProcessorInfo"]["Instances"][1]["ProcessorPresent"], "False");
    EXPECT_EQ(document["Type4"][0]["L1CacheHandle"]["Handle"], "0x0020");
    EXPECT_EQ(document["Type1"]["Manufacturer"]["text"].get<std::string>().substr(0, 7), "a\\b\tc\nd");
}

TEST_F(Tool, JsonLinesGoOnBehindAFailure)
{
    Put("one", Image(Machine(System("Maker", "One"))));
    Put("two", Image(Machine(System("Maker", "Two"))));
    Put("newer", Image(Machine(System("Maker", "Newer")), 3, 5));
    const Outcome outcome = Run("--jsonl one newer missing two --path /SMBIOS/Type1/ProductName");
    EXPECT_EQ(outcome.Status, 1);
    std::istringstream lines(outcome.Out);
    std::vector<json> documents;
    for (std::string line; std::getline(lines, line);)
        documents.push_back(json::parse(line));
    ASSERT_EQ(documents.size(), 4U);
    EXPECT_EQ(documents[0], (json{{"input", "one"}, {"tree", "One"}}));
    EXPECT_EQ(documents[1]["error"]["code"], "unsupported-version");
    EXPECT_EQ(documents[2]["error"]["code"], "unreadable");
    EXPECT_NE(documents[2]["error"]["message"], "");
    EXPECT_EQ(documents[3], (json{{"input", "two"}, {"tree", "Two"}}));
    EXPECT_EQ(Run("--jsonl one two").Status, 0);
}

TEST_F(Tool, DiffMarksWhatChangedByPath)
{
    std::vector<Structure> before = Machine(System("Maker", "One"));
    std::vector<Structure> after = Machine(System("Maker", "Two"));
    after.push_back(MemoryDevice(0x31, 8192, "D"));
    after[3] = Cache(0x21, "L1"); // the processors' link leads nowhere now
    Put("before", Image(before));
    Put("after", Image(after));

    EXPECT_EQ(Run("--diff before before").Out, "");
    EXPECT_EQ(Run("--diff before before").Status, 0);
    const Outcome changed = Run("--diff before after");
    EXPECT_EQ(changed.Status, 1);
    EXPECT_EQ(changed.Out.rfind("< /SMBIOS/Type1/ProductName = One\n> /SMBIOS/Type1/ProductName = Two\n", 0),
              0U)
        << changed.Out;
    for (const char* const line :
         {"\n- /SMBIOS/Type4[1]/L1CacheHandle/Handle = 0x0020\n", "\n+ /SMBIOS/Type17[4]/Size = 8192\n",
          "\n+ /SMBIOS/MemoryArray[2]/MemoryDevice[2]/Size = 8192\n",
          "\n> /SMBIOS/MemoryArray[2]/TotalNoOfDevicePresent = 2\n"})
        EXPECT_NE(changed.Out.find(line), std::string::npos) << line;
    EXPECT_EQ(changed.Out.find("Type16"), std::string::npos);

    const char* const device = " --path '/SMBIOS/Type17[4]/Size'";
    EXPECT_EQ(Run(std::string("--diff before after") + device).Out, "+ /SMBIOS/Type17[4]/Size = 8192\n");
    EXPECT_EQ(Run(std::string("--diff after before") + device).Out, "- /SMBIOS/Type17[4]/Size = 8192\n");
}

TEST_F(Tool, ColoursATerminalAlone)
{
    Put("image", Image(Machine(System("Maker", "Machine"))));
    const auto onTerminal = [](const std::string& environment, const std::string& words) {
        return Run("image " + words + "\"", "script -qec \"" + environment + " ").Out;
    };
    const auto isColoured = [](const std::string& text) { return text.find("\x1B[") != std::string::npos; };
    EXPECT_FALSE(isColoured(Run("image").Out));
    EXPECT_TRUE(isColoured(Run("image --color=always", "NO_COLOR=1").Out));
    EXPECT_TRUE(isColoured(onTerminal("TERM=xterm NO_COLOR=", "")));
    EXPECT_FALSE(isColoured(onTerminal("TERM=xterm NO_COLOR=1", "")));
    EXPECT_FALSE(isColoured(onTerminal("TERM=dumb", "")));
    EXPECT_FALSE(isColoured(onTerminal("TERM=xterm", "--color=never")));
    EXPECT_FALSE(isColoured(onTerminal("TERM=xterm", "--json")));
}

TEST_F(Tool, TellsOfItself)
{
    EXPECT_EQ(Run("--version").Out, "smbios-tree " SMBIOS_TREE_VERSION "\n");
    EXPECT_NE(Run("--help").Out.find("--read-as"), std::string::npos);
    EXPECT_EQ(Run("--help >/dev/full").Status, 1);
    // Whether the machine's own table can be read or not, the library logs its way to it.
    const Outcome live = Run("--log");
    EXPECT_NE(live.Err.find("GetSMBiosEntryPtr"), std::string::npos) << live.Err;
    EXPECT_EQ(live.Status == 0, live.Out.rfind("SMBIOS\n", 0) == 0);
}

} // namespace
