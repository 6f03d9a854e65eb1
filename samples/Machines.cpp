#include "samples/Machines.h"

namespace Images {

namespace {

using Structures = std::vector<Structure>;

enum : std::uint16_t {
    Chassis = 0x0300,
    FirstBoard = 0x0200,
    FirstProcessor = 0x0400,
    FirstCache = 0x0700,
    FirstPort = 0x0800,
    FirstSlot = 0x0900,
    FirstOnBoardDevice = 0x0A00,
    FirstArray = 0x1000,
    SecondArray,
    FirstDevice = 0x1100,
    ArrayError = 0x1200,
    DeviceError,
    MappedAddress = 0x1300,
    FirstSpdBlock = 0x8400,
};
constexpr Word NoError{0xFFFF};
constexpr Word NotProvided{0xFFFE};
constexpr Word NoCache{0xFFFF};
constexpr Word UnknownWidth{0xFFFF};

constexpr std::uint32_t Gigabyte = 1024 * 1024; // in kilobytes

void Add(Structures& table, const Structures& more)
{
    table.insert(table.end(), more.begin(), more.end());
}

Structure Cache(unsigned int number, const std::string& name, unsigned int configuration, unsigned int size,
                unsigned int kind, unsigned int associativity)
{
    constexpr Word Synchronous{0x20};
    constexpr unsigned int SingleBitEcc = 5;
    return StructureOf(7, static_cast<std::uint16_t>(FirstCache + number), name, Word{configuration},
                       Word{size}, Word{size}, Synchronous, Synchronous, 0, SingleBitEcc, kind,
                       associativity);
}

Structure Port(unsigned int number, const std::string& inside, unsigned int insideConnector,
               const std::string& outside, unsigned int outsideConnector, unsigned int kind)
{
    return StructureOf(8, static_cast<std::uint16_t>(FirstPort + number), inside, insideConnector, outside,
                       outsideConnector, kind);
}

Structure Slot(unsigned int id, const std::string& name, unsigned int type, unsigned int width,
               unsigned int usage)
{
    constexpr unsigned int LongLength = 4, Gives3V3 = 0x04, PowerManagement = 0x01;
    return StructureOf(9, static_cast<std::uint16_t>(FirstSlot + id - 1), name, type, width, usage,
                       LongLength, Word{id}, Gives3V3, PowerManagement);
}

struct DeviceRow {
    std::uint16_t Array;
    std::string Slot, Bank;
    unsigned int Megabytes; ///< 0: the slot is empty
    std::string SerialNo;
    Word ErrorHandle = NoError;
};

struct ModuleKind {
    unsigned int Type, Detail, Speed, TotalWidth;
    std::string Manufacturer, PartNumber;
};

// From revision 2.6 on a device tells its rank, from 2.7 on the size that does not fit the older field.
void AddDevices(Structures& table, const std::vector<DeviceRow>& devices, const ModuleKind& kind, bool asOf27)
{
    constexpr unsigned int Dimm = 9, UnknownType = 2, SizeBelow = 0x7FFF;
    std::uint16_t handle = FirstDevice;
    for (const DeviceRow& device : devices) {
        const bool isFilled = device.Megabytes != 0;
        const bool isLarge = device.Megabytes > SizeBelow;
        const Word size{isLarge ? SizeBelow : device.Megabytes};
        Structure structure = StructureOf(
            17, handle++, Word{device.Array}, device.ErrorHandle,
            isFilled ? Word{kind.TotalWidth} : UnknownWidth, isFilled ? Word{64} : UnknownWidth, size, Dimm,
            0, device.Slot, device.Bank, isFilled ? kind.Type : UnknownType, Word{isFilled ? kind.Detail : 0},
            Word{isFilled ? kind.Speed : 0}, isFilled ? kind.Manufacturer : "", device.SerialNo,
            device.Slot + " tag", isFilled ? kind.PartNumber : "");
        if (asOf27)
            structure.Byte(isFilled ? 2 : 0)
                .Dword(isLarge ? device.Megabytes : 0)
                .Word(isFilled ? kind.Speed : 0);
        table.push_back(structure);
    }
}

Structure Array(std::uint16_t handle, unsigned int errorCorrection, unsigned int gigabytes, Word errorHandle,
                unsigned int slots)
{
    constexpr unsigned int SystemBoard = 3, SystemMemory = 3;
    return StructureOf(16, handle, SystemBoard, SystemMemory, errorCorrection, Dword{gigabytes * Gigabyte},
                       errorHandle, Word{slots});
}

void AddServerIdentity(Structures& table)
{
    table.push_back(StructureOf(0, 0x0000, "Fernhill Firmware Works", "TR2-1.14", Word{0xF000}, "03/18/2011",
                                0x7F, Qword{0x3F8B9880}, 0x03, 0x1D, 1, 14, 2, 7));
    table.push_back(StructureOf(
        1, 0x0100, "Northmere Systems", "Tarn R240", "Rev B", "NM240-00173",
        Bytes{0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF},
        6, "R240-2S-32", "Tarn"));

    const struct {
        std::string Product, SerialNo, Place;
        unsigned int Features, Type;
        std::uint16_t Contains;
    } boards[] = {
        {"TM-240", "TM-00991", "Chassis floor", 0x09, 0x0A, FirstBoard + 1},
        {"TR-2X8 riser", "TR-00417", "Rear left", 0x0C, 0x09, FirstSlot + 2},
        {"TB-8S drive backplane", "TB-00206", "Front", 0x1C, 0x0D, FirstPort + 5},
    };
    std::uint16_t handle = FirstBoard;
    for (const auto& board : boards)
        table.push_back(StructureOf(2, handle++, "Northmere Systems", board.Product, "A02", board.SerialNo,
                                    "Asset " + board.SerialNo, board.Features, board.Place, Word{Chassis},
                                    board.Type, 1, Word{board.Contains}));

    constexpr unsigned int RackMountWithLock = 0x80 | 0x17, Safe = 3, NoSecurity = 3;
    table.push_back(StructureOf(3, Chassis, "Northmere Systems", RackMountWithLock, "2U-08", "CH-55120",
                                "Rack 7, unit 12", Safe, Safe, Safe, NoSecurity, Dword{0}, 2, 2, 0, 0,
                                "R240-CH-8"));
}

void AddServerProcessors(Structures& table)
{
    constexpr unsigned int Central = 3, OtherFamily = 1, UnknownFamily = 2, Upgrade = 25;
    table.push_back(StructureOf(4, FirstProcessor, "CPU1", Central, OtherFamily, "Halden Micro",
                                Bytes{0xC2, 0x06, 0x02, 0x00, 0xFF, 0xFB, 0xEB, 0xBF},
                                "Halden HM8-2600, 2.60 GHz", 0x80 | 12, Word{133}, Word{3200}, Word{2600},
                                0x41, Upgrade, Word{FirstCache}, Word{FirstCache + 1}, Word{FirstCache + 2},
                                "HM8-77120045", "CPU1 tag", "HM8-2600-B1", 8, 8, 16, Word{0x00FC},
                                Word{OtherFamily}));
    table.push_back(StructureOf(4, FirstProcessor + 1, "CPU2", Central, UnknownFamily, "", Qword{0}, "", 0,
                                Word{133}, Word{3200}, Word{0}, 0x00, Upgrade, NoCache, NoCache, NoCache, "",
                                "", "", 0, 0, 0, Word{0}, Word{UnknownFamily}));
    Add(table, {Cache(0, "L1 Cache", 0x0180, 512, 4, 7), Cache(1, "L2 Cache", 0x0181, 2048, 5, 7),
                Cache(2, "L3 Cache", 0x0182, 0x8000 | 320, 5, 14)});
}

void AddServerConnectors(Structures& table)
{
    Add(table, {Port(0, "J1", 0x00, "VGA", 0x07, 0x1C), Port(1, "J2", 0x00, "USB 1", 0x12, 0x10),
                Port(2, "J3", 0x00, "LAN 1", 0x0B, 0x1F), Port(3, "J4", 0x00, "LAN 2", 0x0B, 0x1F),
                Port(4, "J5", 0x00, "COM A", 0x08, 0x09), Port(5, "SATA 0", 0x22, "", 0x00, 0x20)});
    // From revision 2.6 on a slot tells its place on the bus.
    Add(table, {Slot(1, "SLOT 1 PCIe 2.0 x8", 0xAF, 11, 4).Raw({0, 0, 1, 1 << 3}),
                Slot(2, "SLOT 2 PCIe 2.0 x16", 0xB0, 13, 3).Raw({0, 0, 2, 3 << 3}),
                Slot(3, "RISER SLOT 3 PCIe 2.0 x4", 0xAE, 10, 4).Raw({0, 0, 3, 5 << 3}),
                Slot(4, "SLOT 4 PCI", 0x06, 5, 3).Raw({0, 0, 4, 7 << 3})});
    table.push_back(StructureOf(10, FirstOnBoardDevice, 0x83, "Birk Graphics BG1"));
    table.push_back(StructureOf(10, FirstOnBoardDevice + 1, 0x85, "Lofoten Networks LN-2G"));
    table.push_back(StructureOf(10, FirstOnBoardDevice + 2, 0x09, "SATA controller"));
}

void AddServerMemory(Structures& table)
{
    constexpr unsigned int MultiBitEcc = 6;
    const ModuleKind ddr3{0x18, 0x2080, 1333, 72, "Quarzbach Memory", "QB3R-1333"};
    table.push_back(Array(FirstArray, MultiBitEcc, 128, Word{ArrayError}, 4));
    table.push_back(Array(SecondArray, MultiBitEcc, 128, NotProvided, 4));
    AddDevices(table,
               {{FirstArray, "DIMM A1", "CPU1 channel A", 8192, "QB-0001"},
                {FirstArray, "DIMM A2", "CPU1 channel A", 16384, "QB-0002", Word{DeviceError}},
                {SecondArray, "DIMM C1", "CPU2 channel C", 0, ""},
                {FirstArray, "DIMM B1", "CPU1 channel B", 32768, "QB-0003"},
                {FirstArray, "DIMM B2", "CPU1 channel B", 0, ""},
                {SecondArray, "DIMM C2", "CPU2 channel C", 0, ""},
                {SecondArray, "DIMM D1", "CPU2 channel D", 0, ""},
                {SecondArray, "DIMM D2", "CPU2 channel D", 0, ""}},
               ddr3, true);
    constexpr Dword UnknownAddress{0x80000000};
    table.push_back(
        StructureOf(18, ArrayError, 3, 2, 2, Dword{0}, UnknownAddress, UnknownAddress, UnknownAddress));
    table.push_back(StructureOf(18, DeviceError, 12, 3, 3, Dword{0x5A}, Dword{0x12345000}, Dword{0x02345000},
                                Dword{4096}));
    table.push_back(StructureOf(19, MappedAddress, Dword{0}, Dword{56 * Gigabyte - 1}, Word{FirstArray}, 1));
}

void AddServerManagement(Structures& table)
{
    table.push_back(StructureOf(11, 0x0B00, 3)
                        .MoreText("Northmere service line 4")
                        .MoreText("Build 20110318")
                        .MoreText("Burn-in passed"));
    table.push_back(
        StructureOf(13, 0x0D00, 2, 0x01, Bytes(15), "en|US|iso8859-1").MoreText("de|DE|iso8859-1"));
    table.push_back(StructureOf(24, 0x1800, 0x44));
    table.push_back(StructureOf(32, 0x2000, Bytes(16)));
    table.push_back(StructureOf(38, 0x2600, 1, 0x20, 0x20, 0xFF, Qword{0xCA3}, 0, 0));

    constexpr std::uint32_t SpdArea = 0x7F600000, BlockSize = 256;
    const unsigned int channelAndSlot[][2] = {{0, 0}, {0, 1}, {1, 0}};
    for (std::uint16_t i = 0; i < 3; ++i)
        table.push_back(StructureOf(132, static_cast<std::uint16_t>(FirstSpdBlock + i),
                                    Dword{SpdArea + i * BlockSize}, Dword{BlockSize}, 0, channelAndSlot[i][0],
                                    channelAndSlot[i][1], 0));
    table.push_back(StructureOf(133, 0x8500, Dword{0x7F000000}, Dword{0x01000000}));
}

void AddDesktopIdentity(Structures& table)
{
    table.push_back(StructureOf(0, 0x0000, "Fernhill Firmware Works", "D7-0.9", Word{0xE800}, "11/02/2005",
                                0x07, Qword{0x7FCB9E90}, 0x33, 0x05, 0, 9, 0xFF, 0xFF));
    table.push_back(StructureOf(
        1, 0x0100, "Hazelbrook Computers", "Sorrel D7", "1.0", "HB-D7-40412",
        Bytes{0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F, 0x10},
        6, "D7-BASE", "Sorrel"));
    table.push_back(StructureOf(2, FirstBoard, "Hazelbrook Computers", "SB-D7", "2.1", "SB-118203", "", 0x09,
                                "", Word{Chassis}, 0x0A, 1, Word{FirstSlot}));
    constexpr unsigned int MiniTower = 6, Safe = 3, NoSecurity = 3;
    table.push_back(StructureOf(3, Chassis, "Hazelbrook Computers", MiniTower, "1.0", "HB-D7-40412", "", Safe,
                                Safe, Safe, NoSecurity, Dword{0}, 0, 1, 0, 0));
}

} // namespace

Bytes TwoSocketServer()
{
    Structures table;
    AddServerIdentity(table);
    AddServerProcessors(table);
    AddServerConnectors(table);
    AddServerMemory(table);
    AddServerManagement(table);
    return Image(table, 2, 7);
}

Bytes Desktop()
{
    constexpr unsigned int Central = 3, OtherFamily = 1, Socket939 = 17, NoErrorCorrection = 3;
    Structures table;
    AddDesktopIdentity(table);
    table.push_back(StructureOf(4, FirstProcessor, "CPU 1", Central, OtherFamily, "Halden Micro",
                                Bytes{0xB2, 0x0F, 0x02, 0x00, 0xFF, 0xFB, 0x8B, 0x17}, "Halden HM2-2000",
                                0x80 | 14, Word{200}, Word{2200}, Word{2000}, 0x41, Socket939,
                                Word{FirstCache}, Word{FirstCache + 1}, NoCache, "", "", ""));
    Add(table, {Cache(0, "Internal Cache", 0x0180, 64, 5, 4), Cache(1, "External Cache", 0x0181, 512, 5, 7)});
    Add(table, {Port(0, "PRIMARY IDE", 0x16, "", 0x00, 0xFF), Port(1, "", 0x00, "Keyboard", 0x0F, 0x0D),
                Port(2, "", 0x00, "LPT 1", 0x05, 0x05), Port(3, "", 0x00, "USB 1", 0x12, 0x10)});
    Add(table, {Slot(1, "PCIEX16", 0xA5, 13, 4), Slot(2, "PCI1", 0x06, 5, 3), Slot(3, "PCI2", 0x06, 5, 4)});
    table.push_back(StructureOf(10, FirstOnBoardDevice, 0x87, "Murmur Audio MA6"));
    table.push_back(StructureOf(13, 0x0D00, 1, 0x00, Bytes(15), "en-US"));
    table.push_back(Array(FirstArray, NoErrorCorrection, 4, NotProvided, 4));
    AddDevices(table,
               {{FirstArray, "DIMM0", "BANK0", 512, "QB-9001"},
                {FirstArray, "DIMM1", "BANK1", 512, "QB-9002"},
                {FirstArray, "DIMM2", "BANK2", 0, ""},
                {FirstArray, "DIMM3", "BANK3", 0, ""}},
               {0x12, 0x0080, 400, 64, "Quarzbach Memory", "QB1-400"}, false);
    table.push_back(StructureOf(19, MappedAddress, Dword{0}, Dword{Gigabyte - 1}, Word{FirstArray}, 2));
    table.push_back(StructureOf(32, 0x2000, Bytes(16)));
    return Image(table, 2, 4);
}

} // namespace Images
