// Replays the cases of this folder: tables made to do harm, by the means that the format itself offers.
// Whatever the table, constructing an object and asking it for everything ends soon, takes limited memory and
// gives all of it back; how many nodes there are is what comes of it. What is done reads as
// samples/TableText.h says, and besides:
//
//   Nx ...          a statement that is repeated N times
//   largest N       with the largest N whose tree is not too large, and with one more
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

constexpr std::size_t MaxMemory = 512U << 20;
constexpr std::size_t MaxAllocations = std::size_t{8} * Protocol::SMBIOS::TreeTooLarge::MaxWrites;

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
        outcome += Searched(*make());
    } catch (const Protocol::SMBIOS::TreeTooLarge& refusal) {
        outcome += std::string(refusal.what()) + "\n";
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

std::string Tried(const std::string& table, const std::vector<std::string>& live, bool isNewest)
{
    if (isNewest)
        return Measured([image = Images::ImageFromText(table)] { return ReadWithNewest(image); });
    if (live.empty()) {
        const Images::Bytes image = Images::ImageFromText(table);
        return image.size() > 65'535 ? "too long for an image\n" : Measured([&] { return Decoded(image); });
    }
    const Images::Bytes bytes = Images::FromText(table);
    FakeSystem::TheMachine = live[0] == "block" ? Machine::WithBlock(bytes) : Machine::WithEntryPoint(bytes);
    return Measured(FakeSystem::NewLiveObject);
}

std::string Replayed(const std::string& text)
{
    std::string table = Cases::Given(text);
    const std::string given = table + "->\n";
    const auto largest = Cases::TakeLines(table, "largest"), live = Cases::TakeLines(table, "live");
    const bool isNewest = !Cases::TakeLines(table, "reading").empty();
    if (largest.empty())
        return given + Tried(table, live, isNewest);
    const auto with = [&](std::size_t count) {
        std::string counted = table;
        counted.replace(counted.find("Nx "), 1, std::to_string(count));
        return counted;
    };
    const std::size_t count = std::stoul(largest[0]);
    return given + Tried(with(count), live, isNewest) + Tried(with(count + 1), live, isNewest);
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
