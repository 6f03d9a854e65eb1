// Replays the cases of this folder: tables made to do harm, by the means that the format itself offers.
// Whatever the table, constructing an object and asking it for everything ends soon, takes limited memory and
// gives all of it back; how many nodes there are is what comes of it. What is done reads as
// samples/TableText.h says, and besides:
//
//   Nx ...          a statement that is repeated N times
//   largest N       with the largest N whose tree is not too large, and with one more; "largest N of 2.4" or
//                   "of newest" in a table of that version or read with the newest catalogue, as often as
//                   needed
//   live entry      the table behind the entry point of a live machine; "live block" in the firmware's block
//   reading newest  with the newest catalogue
//
// Memory and allocations are tested: they are the same on every machine.

#include "bench/CountingNew.h"
#include "samples/TableText.h"
#include "support/Cases.h"
#include "support/FakeSystem.h"

using FakeSystem::Machine;

namespace {

constexpr std::size_t MaxMemory = 448U << 20;     ///< with the result of a search for all
constexpr std::size_t MaxOfAnObject = 144U << 20; ///< without
constexpr std::size_t MaxAllocations = std::size_t{8} * Protocol::SMBIOS::TreeTooLarge::MaxWrites;

constexpr const char* TooLarge =
    "the SMBIOS table would make a tree of more than 1,048,576 writes: it is damaged, or "
    "made to exhaust memory"; ///< in the cases "too large"

// What a search may allocate: for each node its place in the map, its path and its list, and each item's
// text.
std::size_t MaxForSearch(const SearchResult& tree)
{
    std::size_t count = 1;
    for (const auto& [path, node] : tree)
        count += 3 + node.Items.size();
    return count;
}

std::string Searched(SMBIOSProtocolImpl& object)
{
    const std::size_t before = CountingNew::Count;
    const SearchResult tree = Everything(object);
    const bool isFrugal = CountingNew::Count - before <= MaxForSearch(tree);
    return std::to_string(tree.size()) + " nodes" + (isFrugal ? "\n" : ", searched more than once\n");
}

std::string Measured(const std::function<ObjectOwner()>& make)
{
    const std::size_t held = CountingNew::Held, count = CountingNew::Count;
    CountingNew::Peak = held;
    std::string outcome;
    outcome.reserve(200);
    const std::size_t own = CountingNew::Held - held;
    try {
        const ObjectOwner object = make();
        if (CountingNew::Peak - held > MaxOfAnObject)
            outcome += "construction takes too much memory\n";
        outcome += Searched(*object);
    } catch (const Protocol::SMBIOS::TreeTooLarge& refusal) {
        outcome +=
            std::string(refusal.what()) == TooLarge ? "too large\n" : std::string(refusal.what()) + "\n";
    }
    if (CountingNew::Held - own != held)
        outcome += "memory stays behind\n";
    if (CountingNew::Peak - held > MaxMemory)
        outcome += "takes too much memory\n";
    if (CountingNew::Count - count > MaxAllocations)
        outcome += "allocates too often\n";
    if (FakeSystem::TheMachine.Locks != 0)
        outcome += "the lock stays behind\n";
    return outcome;
}

ObjectOwner ReadWithNewest(const Images::Bytes& image)
{
    using Protocol::SMBIOS::TableImage;
    return std::make_unique<SMBIOSProtocolImpl>(TableImage::FromBytes(image),
                                                Protocol::SMBIOS::Reading::Newest);
}

// `version` is that of the table, as "2.4", or "newest" for the catalogue to read it with.
std::string Tried(const std::string& table, const std::vector<std::string>& live, const std::string& version)
{
    if (version == "newest")
        return Measured([image = Images::ImageFromText(table)] { return ReadWithNewest(image); });
    if (live.empty()) {
        const Images::Bytes image = Images::ImageFromText(table);
        return image.size() > 65'535 ? "too long for an image\n" : Measured([&] { return Decoded(image); });
    }
    const Images::Bytes bytes = Images::FromText(table);
    const auto minor = static_cast<unsigned char>(version.back() - '0');
    FakeSystem::TheMachine =
        live[0] == "block" ? Machine::WithBlock(bytes, 2, minor) : Machine::WithEntryPoint(bytes, 2, minor);
    return Measured(FakeSystem::NewLiveObject);
}

std::string Replayed(const std::string& text)
{
    std::string table = Cases::Given(text);
    std::string outcomes;
    const auto largest = Cases::TakeLines(table, "largest"), live = Cases::TakeLines(table, "live");
    const bool isNewest = !Cases::TakeLines(table, "reading").empty();
    if (largest.empty())
        outcomes = Tried(table, live, isNewest ? "newest" : "2.7");
    for (const std::string& each : largest) {
        const std::size_t of = each.find(" of ");
        const std::string version = of == std::string::npos ? "2.7" : each.substr(of + 4);
        const bool isByVersion = version != "newest";
        for (const std::size_t count : {std::stoul(each), std::stoul(each) + 1}) {
            std::string counted = table;
            counted.replace(counted.find("Nx "), 1, std::to_string(count));
            if (isByVersion && live.empty() && of != std::string::npos)
                counted += "\nversion " + version;
            outcomes += Tried(counted, isByVersion ? live : std::vector<std::string>(), version);
        }
    }
    outcomes.pop_back();
    for (std::size_t at = 0; (at = outcomes.find('\n', at)) != std::string::npos; at += 2)
        outcomes.replace(at, 1, "; ");
    return Cases::AsGiven(text) + Wrapped("-> " + outcomes);
}

// What the library makes once a process is made ahead of what is measured.
void MakeCatalogues()
{
    const Protocol::SMBIOS::TableImage table =
        Protocol::SMBIOS::TableImage::FromBytes(Images::Image(Images::FromText("end"), 2, 7));
    for (const int minor : {3, 4, 5, 6, 7})
        SMBIOSProtocolImpl(table.As(2, minor), Protocol::SMBIOS::Reading::ByVersion);
    for (const int major : {2, 3})
        SMBIOSProtocolImpl(table.As(major, 9), Protocol::SMBIOS::Reading::Newest);
    ReadWithNewest(Images::Image(Images::FromText("200 1:\nend"), 2, 7));
}

} // namespace

int main(int count, char* arguments[])
{
    MakeCatalogues();
    return Cases::Run(count, arguments, Replayed);
}
