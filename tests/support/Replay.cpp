// Replays cases: a table in, or a machine of fakes that has one; out, what is asked of the tree, the failure,
// the calls. Cases.h says how a case is put together, samples/TableText.h what makes a table, Tree.h what can
// be asked of a tree. What else can be done:
//
//   sample NAME        the image of samples/NAME.bin
//   root PATH          where the tree's root stands, in the place of /SMBIOS
//   reading WAY        by a TableImage of the bytes, "newest" or "by-version"; else as an image
//   as VERSION         that TableImage, with another version
//   largest N          "Nx STATEMENT" repeats it N times; once more makes the tree too large
//   machine            the running machine, of which these say what it has:
//     memory HEX       physical memory from there on, as the next statements say; else FFh
//     block            likewise the firmware's raw block
//     queried N        the firmware tells this size of its block, whatever it is
//     fetched N        a fetch of the block gives this and no bytes
//     error N          the system's last error
//     failing N CODE   the Nth mapping fails, with that code or for "memory"
//     kept HEX         the system gives this process no range at that address
//     refused N        there is no memory where calloc or malloc is asked for N bytes
//     locked           another process has the lock
//     traced           locks are traced
//   machine 2.7        a running machine whose entry point, of that version, leads to the table
//   machine block 2.7  one with that firmware block
//   machine table      the running machine's TableImage, read with the newest catalogue
//
// And what else can be asked:
//
//   decoded            that there is a tree
//   failure CODE       how there is none; with ":" behind it the message too
//   too large          TreeTooLarge
//   nodes: N           how many a search for all gives
//   calls: ...         the calls of the machine's services in their order, "unlocked" ones named
//   calls and log: ... the same with the lines of the log
//   reserved: A B      address and size of the reserved memory
//   table: V, N bytes  the TableImage
//
// Whatever is done, memory and allocations have a bound, no block of memory stays behind and no lock.

#include "bench/CountingNew.h"
#include "samples/TableText.h"
#include "support/Cases.h"
#include "support/FakeSystem.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <new>
#include <sstream>

using FakeSystem::Machine;
using FakeSystem::TheMachine;
using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::TableImage;
using Protocol::SMBIOS::TreeTooLarge;

namespace {

#if defined(_WIN32)
constexpr bool IsCounted =
    false; // an operator new of the program's own does not reach into the runtime's library
#else
constexpr bool IsCounted = true;
#endif

// Behind each block stands a structure, which whoever reads beyond the block takes for one of the table's.
// The address sanitizer finds that by itself.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::array<unsigned char, 0> Stray = {};
#else
constexpr std::array<unsigned char, 7> Stray = {11, 5, 0xEE, 0xEE, 0xEE, 0, 0};
#endif

std::size_t refused = ~std::size_t{0}; // the size of which there is no memory
int blocks = 0;                        // of C's heap that the program has

} // namespace

// The linker sends the program's calls here.
extern "C" {
void* __real_malloc(std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size)
{
    void* const block = size == refused ? nullptr : __real_malloc(size + Stray.size());
    if (block == nullptr)
        return nullptr;
    ++blocks;
    std::copy(Stray.begin(), Stray.end(), static_cast<unsigned char*>(block) + size);
    return block;
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    void* const block = __wrap_malloc(count * size);
    return block == nullptr ? nullptr : std::memset(block, 0, count * size);
}

void __wrap_free(void* block)
{
    blocks -= block == nullptr ? 0 : 1;
    __real_free(block);
}
}

namespace {

constexpr std::size_t MaxMemory = 448U << 20;     ///< with the result of a search for all
constexpr std::size_t MaxOfAnObject = 144U << 20; ///< without
constexpr std::size_t MaxAllocations = std::size_t{8} * TreeTooLarge::MaxWrites;

constexpr const char* TooLarge =
    "the SMBIOS table would make a tree of more than 1,048,576 writes: it is damaged, or "
    "made to exhaust memory";

std::pair<unsigned char, unsigned char> VersionOf(const std::string& text)
{
    return {static_cast<unsigned char>(std::stoi(text)),
            static_cast<unsigned char>(std::stoi(text.substr(text.find('.') + 1)))};
}

// What is done in a try: sets up TheMachine, and makes the object.
class Scenario {
public:
    // With so many more than the largest number of statements.
    explicit Scenario(const std::string& given, std::size_t more = 0)
    {
        TheMachine = {};
        Told.reserve(100); // ahead of what is counted
        LOGGER::Logger::CreateInstance().TraceLocks = false;
        std::istringstream lines(given);
        for (std::string line; std::getline(lines, line);)
            Read(line);
        Begin(nullptr);
        if (Has("largest"))
            Table.replace(Table.find("Nx "), 1, std::to_string(std::stoul(Says["largest"]) + more));
        const std::string machine = Has("machine") ? Says["machine"] : "";
        const bool isBlock = machine.rfind("block ", 0) == 0;
        if (!isBlock && machine.find('.') == std::string::npos)
            return;
        const auto [major, minor] = VersionOf(machine.substr(isBlock ? 6 : 0));
        const Images::Bytes table = Images::FromText(Table);
        Machine made =
            isBlock ? Machine::WithBlock(table, major, minor) : Machine::WithEntryPoint(table, major, minor);
        TheMachine.Memory.merge(made.Memory);
        TheMachine.Block = made.Block;
    }

    bool Has(const std::string& word) const { return Says.count(word) != 0; }
    std::size_t Refused() const { return Has("refused") ? std::stoul(Says.at("refused")) : ~std::size_t{0}; }
    std::string Root() const { return Has("root") ? Says.at("root") : "/SMBIOS"; }

    ObjectOwner Make()
    {
        if (Has("machine") && Says["machine"] != "table")
            return FakeSystem::NewLiveObject();
        if (Has("machine")) {
            const auto image = TableImage::OfThisMachine();
            Told = std::to_string(image.Major()) + "." + std::to_string(image.Minor()) + ", " +
                   std::to_string(image.Table().size()) + " bytes";
            return std::make_unique<SMBIOSProtocolImpl>(image, Reading::Newest);
        }
        const Images::Bytes image = Has("sample") ? Sample() : Images::ImageFromText(Table);
        if (!Has("reading")) {
            if (image.size() > 65'535)
                throw std::invalid_argument("too long for an image");
            return Decoded(image, Root());
        }
        TableImage table = TableImage::FromBytes(image);
        if (Has("as"))
            table = table.As(std::stoi(Says["as"]), std::stoi(Says["as"].substr(Says["as"].find('.') + 1)));
        return std::make_unique<SMBIOSProtocolImpl>(
            table, Says["reading"] == "newest" ? Reading::Newest : Reading::ByVersion, Root());
    }

    std::string Told; ///< what the machine's TableImage is

private:
    void Read(const std::string& line)
    {
        const std::size_t end = std::min(line.find(' '), line.size());
        const std::string word = line.substr(0, end), rest = line.substr(std::min(end + 1, line.size()));
        const auto number = [&](int base = 10) { return std::stoul(rest, nullptr, base); };
        if (word == "memory")
            Begin(&TheMachine.Memory[number(16)]);
        else if (line == "block")
            Begin(&TheMachine.Block);
        else if (word == "queried")
            TheMachine.QueriedSize = number();
        else if (word == "fetched")
            TheMachine.FetchResult = number();
        else if (word == "error")
            TheMachine.SystemError = number();
        else if (word == "failing")
            Fail(number(), rest.substr(rest.find(' ') + 1));
        else if (word == "kept")
            TheMachine.Kept.insert(number(16));
        else if (word == "locked")
            TheMachine.LockIsFree = false;
        else if (word == "traced")
            LOGGER::Logger::CreateInstance().TraceLocks = true;
        else if (std::find(std::begin(Words), std::end(Words), word) != std::end(Words))
            Says[word] = rest;
        else
            Statements += line + "\n";
    }

    // Statements up to here are of what was begun before, and then of `target`.
    void Begin(Images::Bytes* target)
    {
        if (Target != nullptr)
            *Target = Images::FromText(Statements);
        else
            Table = Statements;
        Statements.clear();
        Target = target;
    }

    static void Fail(std::size_t call, const std::string& code)
    {
        TheMachine.FailingMap = static_cast<unsigned int>(call);
        TheMachine.MapFailure =
            code == "memory"
                ? std::make_exception_ptr(std::bad_alloc())
                : std::make_exception_ptr(ResultStatus(static_cast<unsigned short>(std::stoul(code)),
                                                       "no way", "the driver", _XCOMMAND(1)));
    }

    Images::Bytes Sample()
    {
        std::ifstream file(SAMPLES "/" + Says["sample"] + ".bin", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static constexpr const char* Words[] = {"sample",  "root",    "reading", "as",
                                            "largest", "machine", "refused"};

    std::map<std::string, std::string> Says; ///< what stands behind each of these words
    std::string Table, Statements;
    Images::Bytes* Target = nullptr;
};

// The events that TheMachine has seen: "lock NAME", "map ADDRESS LENGTH" and "unlock" as "map ADDRESS
// LENGTH".
std::string Calls(bool isLogged)
{
    std::vector<std::string> calls;
    std::istringstream lines(TheMachine.Seen);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t count = calls.size();
        const bool isUnderLock = count > 1 && calls[count - 2] == "lock GLOBAL_MEMORY_MAPPING";
        if (line.rfind("log ", 0) == 0 && !isLogged)
            continue;
        if (line == "unlock" && isUnderLock && calls[count - 1].rfind("map ", 0) == 0) {
            calls.erase(calls.end() - 2);
            calls.back().resize(calls.back().rfind(" unlocked"));
        } else {
            calls.push_back(line.rfind("map ", 0) == 0 ? line + " unlocked" : line);
        }
    }
    std::string text = isLogged ? "calls and log:" : "calls:";
    for (const std::string& call : calls)
        text += (&call == calls.data() ? " " : "; ") + call;
    return text;
}

std::string ReservedMemory(SMBIOSProtocolImpl& object)
{
    unsigned int address = 1, size = 1;
    object.GetBiosReservedMem(&address, nullptr);
    object.GetBiosReservedMem(nullptr, &size);
    object.GetBiosReservedMem(nullptr, nullptr);
    return "reserved: " + std::to_string(address) + " " + std::to_string(size);
}

// A search allocates for each node its place in the map, its path and its list, and each item's text, and no
// more.
std::string Searched(SMBIOSProtocolImpl& object, const std::string& root)
{
    const std::size_t before = CountingNew::Count;
    const SearchResult tree = Everything(object, root);
    std::size_t most = 1;
    for (const auto& [path, node] : tree)
        most += 3 + node.Items.size();
    const bool isFrugal = !IsCounted || CountingNew::Count - before <= most;
    return "nodes: " + std::to_string(tree.size()) + (isFrugal ? "" : ", searched more than once");
}

bool IsAbout(const std::string& question, const char* word)
{
    return question.rfind(word, 0) == 0;
}

std::string AnswerTo(const std::string& question, SMBIOSProtocolImpl& object, const Scenario& scenario)
{
    if (IsAbout(question, "decoded") || IsAbout(question, "failure") || IsAbout(question, "too large"))
        return "decoded";
    if (IsAbout(question, "nodes"))
        return Searched(object, scenario.Root());
    if (IsAbout(question, "reserved"))
        return ReservedMemory(object);
    if (IsAbout(question, "table"))
        return "table: " + scenario.Told;
    return Answer(object, scenario.Root(), question);
}

// The failure that is under way.
std::string Failure(bool isShort)
{
    try {
        throw;
    } catch (const ResultStatus& failure) {
        const bool isPlain = failure.Source().empty() && failure.Command() == XCOMMAND_NONE &&
                             failure.what() == failure.Message();
        return "failure " + std::to_string(failure.Code()) + (isShort ? "" : ": " + failure.Message()) +
               (isPlain ? "" : " (from " + failure.Source() + ")");
    } catch (const TreeTooLarge& failure) {
        return std::string(failure.what()) == TooLarge ? "too large" : failure.what();
    } catch (const std::bad_alloc& failure) {
        return failure.what();
    }
}

constexpr const char* Behind = "memory stays behind";

// What comes of a try, in the order of the questions, and what is wrong beside.
std::vector<std::string> TriedOnce(Scenario scenario, const std::vector<std::string>& questions)
{
    using namespace CountingNew;
    const bool isShort = std::any_of(questions.begin(), questions.end(), [](const std::string& question) {
        return IsAbout(question, "failure") && question.find(':') == std::string::npos;
    });
    std::string failure;
    failure.reserve(1'000);
    FakeSystem::Record();
    TheMachine.Seen.reserve(10'000);
    const std::size_t held = Held, count = Count;
    Peak = held;
    const int before = blocks;
    ObjectOwner object;
    refused = scenario.Refused();
    try {
        object = scenario.Make();
    } catch (...) {
        failure = Failure(isShort);
    }
    refused = ~std::size_t{0};
    const int made = blocks;
    const bool isLarge = object != nullptr && Peak - held > MaxOfAnObject;
    std::vector<std::string> outcomes;
    for (const std::string& question : questions) {
        if (IsAbout(question, "calls"))
            outcomes.push_back(Calls(IsAbout(question, "calls and log")));
        else if (object != nullptr)
            outcomes.push_back(AnswerTo(question, *object, scenario));
        else if (outcomes.empty() || outcomes.back() != failure)
            outcomes.push_back(failure);
    }
    if (IsCounted && (isLarge || Peak - held > MaxMemory || Count - count > MaxAllocations))
        outcomes.emplace_back("takes too much memory");
    if (TheMachine.Locks != 0)
        outcomes.emplace_back("the lock stays behind");
    const int own = blocks - made;
    object.reset();
    if (IsCounted && blocks - own != before)
        outcomes.emplace_back(Behind);
    return outcomes;
}

// Again where memory stays behind: what is made once a process is made then.
std::vector<std::string> Tried(const std::string& given, const std::vector<std::string>& questions,
                               std::size_t more = 0)
{
    std::vector<std::string> outcomes = TriedOnce(Scenario(given, more), questions);
    if (!outcomes.empty() && outcomes.back() == Behind)
        outcomes = TriedOnce(Scenario(given, more), questions);
    if (more == 0 && Scenario(given).Has("largest"))
        outcomes.back() += "; one more: " + Tried(given, {"decoded"}, 1).back();
    return outcomes;
}

std::string Replayed(const std::string& text)
{
    std::string replayed;
    for (const Cases::Try& each : Cases::TriesOf(text))
        replayed += Cases::TextOf(each, Tried(each.Given, each.Outcomes));
    return replayed;
}

// For "--trees FILE...": prints the whole trees, for a person who wants to know what changed where a sum did.
std::string Printed(const std::string& text)
{
    for (const Cases::Try& each : Cases::TriesOf(text))
        std::cout << "== " << each.Given << Tried(each.Given, {"tree"})[0];
    return text;
}

} // namespace

int main(int count, char* arguments[])
{
    const bool isForTrees = count > 1 && std::string(arguments[1]) == "--trees";
    return isForTrees ? Cases::Run(count - 1, arguments + 1, Printed)
                      : Cases::Run(count, arguments, Replayed);
}
