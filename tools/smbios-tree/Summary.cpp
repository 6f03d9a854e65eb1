// The summary of a machine, from fields that refer to others where a value is too large for them:
//
//   type 4    CoreCount, ThreadCount   255: see CoreCount2, ThreadCount2
//             ProcessorFamily          254: see ProcessorFamily2
//             Upgrade                  its last value: see SocketType
//   type 17   Size                     0: empty; 65535: unknown; 32767: see ExtendedSize;
//                                      bit 15 set: bits 14:0 in KB, else in MB
//             ExtendedSize             bits 30:0 in MB
//             Speed                    in MT/s, which older versions call MHz; 65535: see ExtendedSpeed
//             ConfiguredMemorySpeed    in MT/s; 65535: see ExtendedConfiguredMemorySpeed
//   type 22   DesignCapacity           in mWh, by DesignCapacityMultiplier
//   type 43   VendorID                 four characters in hexadecimal, filled with 00

#include "Summary.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace SmbiosTree {

namespace {

// A node of the tree, and what its leaves say.
class Part {
public:
    Part(const Tree& tree, std::string_view path) : Whole(tree), Path(path) {}

    bool Has(std::string_view name) const { return static_cast<bool>(At(name)); }

    // Without the blanks around it; empty where there is no leaf.
    std::string Text(std::string_view name) const
    {
        const NodeView leaf = At(name);
        const std::string_view text = leaf ? leaf.Value() : std::string_view();
        const std::size_t first = text.find_first_not_of(' ');
        if (first == std::string_view::npos)
            return {};
        return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
    }

    std::uint64_t Number(std::string_view name) const
    {
        return std::strtoull(Text(name).c_str(), nullptr, 10);
    }

    // What stands behind the type's or list's name: "[2]".
    std::string_view Index() const { return Path.substr(Path.rfind('[')); }

    // The instances that the node below lists; a type of which there is one structure at most lists none.
    std::vector<Part> Instances(std::string_view name) const
    {
        std::vector<Part> instances;
        const NodeView list = At(name);
        if (!list)
            return instances;
        for (const NodeView child : list.DistinctChildren()) {
            if (IsInstance(child))
                instances.emplace_back(Whole, child.Path());
        }
        return instances;
    }

private:
    NodeView At(std::string_view name) const { return Whole.Find(std::string(Path).append(name)); }

    const Tree& Whole;
    std::string_view Path; // the tree's own text
};

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

// "2400 MHz"; empty where the speed is not known.
std::string SpeedText(std::uint64_t speed, const char* unit)
{
    return speed == 0 || speed == 0xFFFF ? std::string() : std::to_string(speed) + " " + unit;
}

// The number at `name`, or the one at `wide` where `name` says `full` and the other is there.
std::uint64_t WideNumber(const Part& part, std::string_view name, std::uint64_t full, std::string_view wide)
{
    const std::uint64_t number = part.Number(name);
    return number == full && part.Has(wide) ? part.Number(wide) : number;
}

// "4 cores", or "255 or more cores" where that is all that the byte can say.
std::string CountOf(const Part& processor, const std::string& name, const char* one)
{
    constexpr std::uint64_t Full = 255;
    const std::string wide = name + "2";
    const bool isMore = processor.Number(name) == Full && !processor.Has(wide);
    return isMore ? "255 or more " + std::string(one) + "s"
                  : Count(WideNumber(processor, name, Full, wide), one);
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
std::uint64_t Kilobytes(const Part& device)
{
    constexpr std::uint64_t Unknown = 0xFFFF;
    constexpr std::uint64_t Extended = 0x7FFF;
    constexpr std::uint64_t IsInKilobytes = 0x8000;
    const std::uint64_t size = device.Number("/Size");
    if (size == Unknown)
        return 0;
    if (size == Extended && device.Has("/ExtendedSize"))
        return (device.Number("/ExtendedSize") & 0x7FFFFFFF) * 1024;
    return (size & IsInKilobytes) != 0 ? size & ~IsInKilobytes : size * 1024;
}

std::string Filled(const std::vector<Slot>& slots, const char* kind)
{
    const auto filled = static_cast<std::size_t>(
        std::count_if(slots.begin(), slots.end(), [](const Slot& slot) { return slot.IsFilled; }));
    return std::to_string(filled) + " of " + Count(slots.size(), kind) + " filled";
}

// The family's name, or its number where it has none here: its text is then empty or hexadecimal. The number
// stands with the structure alone.
std::string Family(const Part& root, const Part& processor)
{
    constexpr std::uint64_t InFamily2 = 254;
    const std::string structure = "/Type4" + std::string(processor.Index());
    const bool isInFamily2 =
        root.Number(structure + "/ProcessorFamily_Raw") == InFamily2 && processor.Has("/ProcessorFamily2");
    const std::string name = isInFamily2 ? "/ProcessorFamily2" : "/ProcessorFamily";
    const std::string text = processor.Text(name);
    const std::string number = root.Text(structure + name + "_Raw");
    const bool isNamed = !text.empty() && text.compare(0, 2, "0x") != 0;
    return isNamed || number.empty() ? text : "family " + number;
}

std::string SocketKind(const Part& processor)
{
    const std::string named = processor.Text("/SocketType");
    return named.empty() ? processor.Text("/Upgrade") : named;
}

Slot Socket(const Part& root, const Part& processor)
{
    Slot socket;
    socket.IsFilled = processor.Text("/ProcessorPresent") == "True";
    const std::string name = processor.Text("/SocketDesignation");
    if (!socket.IsFilled) {
        socket.Headline = "empty";
        socket.Lines = {Joined({name, SocketKind(processor)}, ", ")};
        return socket;
    }
    socket.Headline = processor.Text("/ProcessorVersion");
    if (socket.Headline.empty())
        socket.Headline = Joined({processor.Text("/ProcessorManufacturer"), Family(root, processor)});
    socket.Lines = {
        name, Joined({CountOf(processor, "/CoreCount", "core"), CountOf(processor, "/ThreadCount", "thread"),
                      SpeedText(processor.Number("/CurrentSpeed"), "MHz")},
                     ", ")};
    return socket;
}

// "DDR5 4800 MT/s, runs at 4400 MT/s".
std::string ModuleKind(const Part& device)
{
    const bool isNewer = device.Has("/ConfiguredMemorySpeed");
    const std::uint64_t speed = WideNumber(device, "/Speed", 0xFFFF, "/ExtendedSpeed");
    const std::uint64_t configured =
        WideNumber(device, "/ConfiguredMemorySpeed", 0xFFFF, "/ExtendedConfiguredMemorySpeed");
    const std::string kind = Joined({device.Text("/MemoryType"), SpeedText(speed, isNewer ? "MT/s" : "MHz")});
    const std::string runsAt = configured == speed ? std::string() : SpeedText(configured, "MT/s");
    return Joined({kind, runsAt.empty() ? runsAt : "runs at " + runsAt}, ", ");
}

Slot ModuleSlot(const Part& device)
{
    Slot slot;
    slot.IsFilled = device.Text("/Size") != "0";
    std::string name = device.Text("/DeviceLocator");
    if (name.empty())
        name = device.Text("/BankLocator");
    if (!slot.IsFilled) {
        slot.Headline = "empty";
        slot.Lines = {name};
        return slot;
    }
    const std::uint64_t size = Kilobytes(device);
    slot.Headline = size == 0 ? "size unknown" : SizeText(size);
    slot.Lines = {name, ModuleKind(device)};
    return slot;
}

SlotGroup Processors(const Part& root)
{
    SlotGroup group;
    for (const Part& processor : root.Instances("/ProcessorInfo"))
        group.Slots.push_back(Socket(root, processor));
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
void AddMemory(Summary& summary, const Part& root)
{
    std::vector<std::string> handles;
    std::vector<std::uint64_t> sizes;
    std::uint64_t total = 0;
    for (const Part& device : root.Instances("/Type17")) {
        const std::string handle = device.Text("/MemoryArrayHandle");
        const auto place =
            static_cast<std::size_t>(std::find(handles.begin(), handles.end(), handle) - handles.begin());
        if (place == handles.size()) {
            handles.push_back(handle);
            sizes.push_back(0);
            summary.MemoryArrays.emplace_back();
        }
        const Slot slot = ModuleSlot(device);
        summary.MemoryArrays[place].Slots.push_back(slot);
        summary.Memory.Slots.push_back(slot);
        sizes[place] += Kilobytes(device);
        total += Kilobytes(device);
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

// "47.5 Wh"; empty where the capacity is not known.
std::string WattHours(const Part& battery)
{
    const std::uint64_t factor =
        battery.Has("/DesignCapacityMultiplier") ? battery.Number("/DesignCapacityMultiplier") : 1;
    const std::uint64_t tenths = battery.Number("/DesignCapacity") * factor / 100;
    if (tenths == 0)
        return {};
    const std::string fraction = tenths % 10 == 0 ? "" : "." + std::to_string(tenths % 10);
    return std::to_string(tenths / 10) + fraction + " Wh";
}

void AddBatteries(Summary& summary, const Part& root)
{
    for (const Part& battery : root.Instances("/Type22")) {
        std::string chemistry = battery.Text("/SBDSDeviceChemistry");
        if (chemistry.empty())
            chemistry = battery.Text("/DeviceChemistry");
        AddFact(summary, "Battery",
                Joined({Joined({battery.Text("/Manufacturer"), battery.Text("/DeviceName")}), chemistry,
                        WattHours(battery)},
                       ", "));
    }
}

// "0X49465800" as "IFX".
std::string FromHexadecimal(const std::string& digits)
{
    std::string text;
    for (std::size_t i = 2; i + 1 < digits.size(); i += 2) {
        const auto character = static_cast<char>(std::strtoul(digits.substr(i, 2).c_str(), nullptr, 16));
        if (character != '\0')
            text += character;
    }
    return text;
}

void AddTrustedModules(Summary& summary, const Part& root)
{
    for (const Part& module : root.Instances("/Type43"))
        AddFact(summary, "TPM",
                Joined({FromHexadecimal(module.Text("/VendorID")),
                        module.Text("/MajorSpecVersion") + "." + module.Text("/MinorSpecVersion")}));
}

void AddFirmwareInventory(Summary& summary, const Part& root)
{
    constexpr std::size_t Most = 8;
    const std::vector<Part> all = root.Instances("/Type45");
    std::string text;
    for (std::size_t i = 0; i < std::min(all.size(), Most); ++i)
        text = Joined(
            {text, Joined({all[i].Text("/FirmwareComponentName"), all[i].Text("/FirmwareVersion")})}, ", ");
    if (all.size() > Most)
        text += " and " + std::to_string(all.size() - Most) + " more";
    AddFact(summary, "Further firmware", text);
}

} // namespace

Summary Summarise(const Tree& tree)
{
    const Part root(tree, RootPath);
    Summary summary;
    summary.Title = Joined({root.Text("/Type1/Manufacturer"), root.Text("/Type1/ProductName")});
    if (summary.Title.empty())
        summary.Title = "A machine without a name";
    summary.Subtitle = root.Text("/Type1/Version");
    AddFact(summary, "Serial number", root.Text("/Type1/SerialNo"));
    AddFact(summary, "UUID", root.Text("/Type1/UUID"));
    AddFact(summary, "Firmware",
            Joined({root.Text("/Type0/BIOSVendor"), root.Text("/Type0/BIOSVersion"),
                    root.Text("/Type0/BIOSReleaseDate")}));
    AddFact(summary, "Board", Joined({root.Text("/Type2[1]/Manufacturer"), root.Text("/Type2[1]/Product")}));
    AddFact(summary, "Chassis", Joined({root.Text("/Type3/Manufacturer"), root.Text("/Type3/ChassisType")}));
    AddBatteries(summary, root);
    AddTrustedModules(summary, root);
    AddFirmwareInventory(summary, root);
    summary.Processors = Processors(root);
    AddMemory(summary, root);
    return summary;
}

} // namespace SmbiosTree
