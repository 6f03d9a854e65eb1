// Replays the cases of this folder: a machine of fakes in; out, in this order, what its services and its log
// are asked, and the tree or the failure. What is done:
//
//   memory HEX      physical memory from that address on, as the lines behind this one say in the words of
//                   samples/TableText.h; all else reads as FFh
//   block           likewise the firmware's raw block
//   queried N       the firmware tells this size of its block, whatever it is
//   fetched N       a fetch of the block gives this and no bytes
//   error N         the system's last error
//   failing N CODE  the Nth mapping fails, with that code or for "memory"
//   kept HEX        the system gives this process no range at that address
//   refused N       there is no memory where calloc or malloc is asked for N bytes
//   locked          another process has the lock
//   traced          locks are traced
//   table           the machine's TableImage is asked for, and read with the newest catalogue
//   logged          what is logged is shown too
//
// A mapping is under the lock, but where it says "unlocked"; of a failure's message the first sentence is
// there.

#include "samples/TableText.h"
#include "support/Cases.h"
#include "support/FakeSystem.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <sstream>

using FakeSystem::TheMachine;
using Protocol::SMBIOS::TableImage;

namespace {

std::size_t refused = ~std::size_t{0}; // the size of which there is no memory
int blocks = 0;                        // of C's heap that the library has

} // namespace

// The linker sends the library's calls here.
extern "C" {
void* __real_malloc(std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size)
{
    if (size == refused)
        return nullptr;
    ++blocks;
    return __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    void* const block = __wrap_malloc(count * size);
    return block == nullptr ? nullptr
                            : std::fill_n(static_cast<char*>(block), count * size, '\0') - count * size;
}

void __wrap_free(void* block)
{
    blocks -= block == nullptr ? 0 : 1;
    __real_free(block);
}
}

namespace {

// A machine as a case's lines have it.
class Scenario {
public:
    explicit Scenario(const std::string& text)
    {
        TheMachine = {};
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            Read(line);
        Place();
    }

    bool IsLogged = false;
    bool IsTraced = false;
    bool AsksForTable = false;

private:
    void Read(const std::string& line)
    {
        std::istringstream words(line);
        std::string word, code;
        unsigned long number = 0;
        words >> word;
        if (word == "memory" || line == "block") {
            Place();
            const std::string address = line.substr(word.size());
            Target =
                word == "block" ? &TheMachine.Block : &TheMachine.Memory[std::stoul(address, nullptr, 16)];
        } else if (word == "kept") {
            TheMachine.Kept.insert(std::stoul(line.substr(word.size()), nullptr, 16));
        } else if (word == "logged") {
            IsLogged = true;
        } else if (word == "locked") {
            TheMachine.LockIsFree = false;
        } else if (word == "traced") {
            IsTraced = true;
        } else if (word == "table") {
            AsksForTable = true;
        } else if (words >> number && IsTrouble(word, number)) {
            if (words >> code)
                TheMachine.MapFailure = FailureOf(code);
        } else {
            Table += line + "\n";
        }
    }

    static bool IsTrouble(const std::string& word, unsigned long number)
    {
        if (word == "queried")
            TheMachine.QueriedSize = number;
        else if (word == "fetched")
            TheMachine.FetchResult = number;
        else if (word == "error")
            TheMachine.SystemError = number;
        else if (word == "failing")
            TheMachine.FailingMap = static_cast<unsigned int>(number);
        else if (word == "refused")
            refused = number;
        else
            return false;
        return true;
    }

    static std::exception_ptr FailureOf(const std::string& code)
    {
        if (code == "memory")
            return std::make_exception_ptr(std::bad_alloc());
        const auto number = static_cast<unsigned short>(std::stoul(code));
        return std::make_exception_ptr(ResultStatus(number, "no way", "the driver", _XCOMMAND(1)));
    }

    void Place()
    {
        if (Target != nullptr)
            *Target = Images::FromText(Table);
        Table.clear();
    }

    Images::Bytes* Target = nullptr;
    std::string Table;
};

// The calls in a line, each behind the other: "lock NAME", "map ADDRESS LENGTH" and "unlock" as "map ADDRESS
// LENGTH".
std::string Joined(const std::string& events, bool isLogged)
{
    std::vector<std::string> calls;
    std::istringstream lines(events);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t count = calls.size();
        if (line.rfind("log ", 0) == 0 && !isLogged)
            continue;
        if (line == "unlock" && count > 1 && calls[count - 2] == "lock GLOBAL_MEMORY_MAPPING" &&
            calls.back().rfind("map ", 0) == 0)
            calls.erase(calls.end() - 2);
        else
            calls.push_back(line);
    }
    std::string text;
    for (const std::string& call : calls)
        text += (text.empty() ? "-> calls: " : "; ") + call;
    return text.empty() ? "" : Wrapped(text);
}

std::string FirstSentence(const std::string& outcome)
{
    const std::size_t end = outcome.find(". ");
    return outcome.rfind("-> failure", 0) != 0 || end == std::string::npos
               ? outcome
               : outcome.substr(0, end + 1) + "\n";
}

std::string ReservedMemory(SMBIOSProtocolImpl& object)
{
    unsigned int address = 1, size = 1;
    object.GetBiosReservedMem(&address, nullptr);
    object.GetBiosReservedMem(nullptr, &size);
    object.GetBiosReservedMem(nullptr, nullptr);
    if (address == 0 && size == 0)
        return {};
    return "-> reserved " + std::to_string(address) + " " + std::to_string(size) + "\n";
}

// The table's version and size, and its tree.
std::string TableOutcome(const std::vector<std::string>& shown)
{
    std::string table;
    const std::string outcome = Outcome(
        [&] {
            const auto image = TableImage::OfThisMachine();
            table = "-> table " + std::to_string(image.Major()) + "." + std::to_string(image.Minor()) + ", " +
                    std::to_string(image.Table().size()) + " bytes\n";
            return std::make_unique<SMBIOSProtocolImpl>(image, Protocol::SMBIOS::Reading::Newest);
        },
        shown, BlanksOf(true));
    return table + outcome;
}

std::string Replayed(const std::string& text)
{
    const Scenario scenario(Cases::Given(text));
    const std::vector<std::string> shown = ShownIn(text, "decoded");
    LOGGER::Logger::CreateInstance().TraceLocks = scenario.IsTraced;
    FakeSystem::Record();
    std::string reserved;
    const int before = blocks;
    const auto make = [&] {
        ObjectOwner object = FakeSystem::NewLiveObject();
        reserved = ReservedMemory(*object);
        return object;
    };
    std::string outcome =
        FirstSentence(scenario.AsksForTable ? TableOutcome(shown) : Outcome(make, shown, BlanksOf(false)));
    refused = ~std::size_t{0};
    if (blocks != before)
        outcome += "-> " + std::to_string(blocks - before) + " blocks stay behind\n";
    if (TheMachine.Locks != 0)
        outcome += "-> the lock stays behind\n";
    return Cases::AsGiven(text) + Joined(TheMachine.Seen, scenario.IsLogged) + reserved + outcome;
}

} // namespace

int main(int count, char* arguments[])
{
    BlanksOf(true); // ahead of what is measured
    return Cases::Run(count, arguments, Replayed);
}
