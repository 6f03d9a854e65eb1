// The summary of a machine. Sizes of a memory device (type 17):
//
//   Size           0: empty; 65535: unknown; 32767: see ExtendedSize;
//                  bit 15 set: bits 14:0 in KB, else in MB
//   ExtendedSize   bits 30:0 in MB

#include "Summary.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace SmbiosTree {

namespace {

const Node* Find(const Node& top, std::string_view path)
{
    for (const Node& child : top.Children) {
        if (child.Key == path)
            return &child;
        const bool leadsOn = path.substr(0, child.Key.size()) == child.Key && !child.Children.empty();
        const Node* const found = leadsOn ? Find(child, path.substr(child.Key.size())) : nullptr;
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

// A leaf's text without the blanks around it; empty where there is no leaf.
std::string TextAt(const Node& top, std::string_view path)
{
    const Node* const leaf = Find(top, path);
    if (leaf == nullptr)
        return {};
    const std::size_t first = leaf->Value.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return std::string(leaf->Value.substr(first, leaf->Value.find_last_not_of(' ') - first + 1));
}

std::uint64_t NumberAt(const Node& top, std::string_view path)
{
    return std::strtoull(TextAt(top, path).c_str(), nullptr, 10);
}

// The texts that are not empty, one behind the other.
std::string Joined(std::initializer_list<std::string> texts, const char* between = " ")
{
    std::string joined;
    for (const std::string& text : texts) {
        if (!text.empty())
            joined += (joined.empty() ? "" : between) + text;
    }
    return joined;
}

// "4 cores"; empty for none.
std::string Count(std::uint64_t count, const char* one)
{
    if (count == 0)
        return {};
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string Megahertz(std::uint64_t speed)
{
    return speed == 0 || speed == 0xFFFF ? std::string() : std::to_string(speed) + " MHz";
}

std::string SizeText(std::uint64_t kilobytes)
{
    const char* unit = "KB";
    for (const char* const larger : {"MB", "GB", "TB"}) {
        if (kilobytes < 1024 || kilobytes % 1024 != 0)
            break;
        kilobytes /= 1024;
        unit = larger;
    }
    return std::to_string(kilobytes) + " " + unit;
}

// 0 where the size is unknown.
std::uint64_t Kilobytes(const Node& device)
{
    constexpr std::uint64_t Unknown = 0xFFFF;
    constexpr std::uint64_t Extended = 0x7FFF;
    constexpr std::uint64_t IsInKilobytes = 0x8000;
    const std::uint64_t size = NumberAt(device, "/Size");
    if (size == Unknown)
        return 0;
    if (size == Extended && Find(device, "/ExtendedSize") != nullptr)
        return (NumberAt(device, "/ExtendedSize") & 0x7FFFFFFF) * 1024;
    return (size & IsInKilobytes) != 0 ? size & ~IsInKilobytes : size * 1024;
}

std::string Filled(const std::vector<Slot>& slots, const char* kind)
{
    const auto filled = static_cast<std::size_t>(
        std::count_if(slots.begin(), slots.end(), [](const Slot& slot) { return slot.IsFilled; }));
    return std::to_string(filled) + " of " + Count(slots.size(), kind) + " filled";
}

Slot Socket(const Node& processor)
{
    Slot socket;
    socket.IsFilled = TextAt(processor, "/ProcessorPresent") == "True";
    const std::string name = TextAt(processor, "/SocketDesignation");
    if (!socket.IsFilled) {
        socket.Headline = "empty";
        socket.Lines = {Joined({name, TextAt(processor, "/Upgrade")}, ", ")};
        return socket;
    }
    socket.Headline = TextAt(processor, "/ProcessorVersion");
    if (socket.Headline.empty())
        socket.Headline =
            Joined({TextAt(processor, "/ProcessorManufacturer"), TextAt(processor, "/ProcessorFamily")});
    socket.Lines = {name, Joined({Count(NumberAt(processor, "/CoreCount"), "core"),
                                  Count(NumberAt(processor, "/ThreadCount"), "thread"),
                                  Megahertz(NumberAt(processor, "/CurrentSpeed"))},
                                 ", ")};
    return socket;
}

Slot ModuleSlot(const Node& device)
{
    Slot slot;
    slot.IsFilled = TextAt(device, "/Size") != "0";
    std::string name = TextAt(device, "/DeviceLocator");
    if (name.empty())
        name = TextAt(device, "/BankLocator");
    if (!slot.IsFilled) {
        slot.Headline = "empty";
        slot.Lines = {name};
        return slot;
    }
    const std::uint64_t size = Kilobytes(device);
    slot.Headline = size == 0 ? "size unknown" : SizeText(size);
    slot.Lines = {name, Joined({TextAt(device, "/MemoryType"), Megahertz(NumberAt(device, "/Speed"))})};
    return slot;
}

// The instances that a node lists; a type of which there is one structure at most lists none.
std::vector<const Node*> Instances(const Node& root, std::string_view list)
{
    std::vector<const Node*> instances;
    const Node* const node = Find(root, list);
    if (node == nullptr)
        return instances;
    for (const Node& child : node->Children) {
        if (child.Key.front() == '[')
            instances.push_back(&child);
    }
    return instances;
}

SlotGroup Processors(const Node& root)
{
    SlotGroup group;
    for (const Node* const processor : Instances(root, "/ProcessorInfo"))
        group.Slots.push_back(Socket(*processor));
    group.Title = group.Slots.empty() ? "none in the table" : Filled(group.Slots, "socket");
    return group;
}

void NameMemory(SlotGroup& group, std::uint64_t kilobytes, const std::string& name)
{
    group.Title =
        group.Slots.empty()
            ? "none in the table"
            : name + Joined({kilobytes == 0 ? "" : SizeText(kilobytes), Filled(group.Slots, "slot")}, ", ");
}

// Devices go by the array handle that they name: some firmware names one that no array has.
void AddMemory(Summary& summary, const Node& root)
{
    std::vector<std::string> handles;
    std::vector<std::uint64_t> sizes;
    std::uint64_t total = 0;
    for (const Node* const device : Instances(root, "/Type17")) {
        const std::string handle = TextAt(*device, "/MemoryArrayHandle");
        const auto place =
            static_cast<std::size_t>(std::find(handles.begin(), handles.end(), handle) - handles.begin());
        if (place == handles.size()) {
            handles.push_back(handle);
            sizes.push_back(0);
            summary.MemoryArrays.emplace_back();
        }
        const Slot slot = ModuleSlot(*device);
        summary.MemoryArrays[place].Slots.push_back(slot);
        summary.Memory.Slots.push_back(slot);
        sizes[place] += Kilobytes(*device);
        total += Kilobytes(*device);
    }
    for (std::size_t i = 0; i < sizes.size(); ++i)
        NameMemory(summary.MemoryArrays[i], sizes[i], "Array " + std::to_string(i + 1) + ": ");
    NameMemory(summary.Memory, total, "");
}

void AddFact(Summary& summary, const char* label, const std::string& text)
{
    if (!text.empty())
        summary.Facts.push_back({label, text});
}

} // namespace

Summary Summarise(const Node& root)
{
    Summary summary;
    summary.Title = Joined({TextAt(root, "/Type1/Manufacturer"), TextAt(root, "/Type1/ProductName")});
    if (summary.Title.empty())
        summary.Title = "A machine without a name";
    summary.Subtitle = TextAt(root, "/Type1/Version");
    AddFact(summary, "Serial number", TextAt(root, "/Type1/SerialNo"));
    AddFact(summary, "UUID", TextAt(root, "/Type1/UUID"));
    AddFact(summary, "Firmware",
            Joined({TextAt(root, "/Type0/BIOSVendor"), TextAt(root, "/Type0/BIOSVersion"),
                    TextAt(root, "/Type0/BIOSReleaseDate")}));
    AddFact(summary, "Board",
            Joined({TextAt(root, "/Type2[1]/Manufacturer"), TextAt(root, "/Type2[1]/Product")}));
    AddFact(summary, "Chassis",
            Joined({TextAt(root, "/Type3/Manufacturer"), TextAt(root, "/Type3/ChassisType")}));
    summary.Processors = Processors(root);
    AddMemory(summary, root);
    return summary;
}

} // namespace SmbiosTree
