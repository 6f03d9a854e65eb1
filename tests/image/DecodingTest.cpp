// From bytes to text: numbers, strings, enumerations, bits, and the packed fields of each decoder.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

constexpr std::size_t HeaderSize = 4;
constexpr std::size_t LongEnough = 64;

/// The tree of one structure, all zeros but for `bytes` at `offset`.
Tree Holding(unsigned char type, std::size_t offset, const Bytes& bytes, unsigned char minor)
{
    return Tree(Image({Structure(type, 1).Fill(offset - HeaderSize).Raw(bytes).Fill(LongEnough)}, 2, minor));
}

/// The text of a leaf; of an inner node its leaves' texts, one behind the other.
std::string TextAt(Tree tree, const std::string& path)
{
    if (tree.Leaf(path) != "(inner)")
        return tree.Leaf(path);
    std::string texts;
    for (const std::string& child : tree.Children(path))
        texts += (texts.empty() ? "" : ", ") + tree.Leaf(path + child);
    return texts;
}

struct Case {
    unsigned char Type;
    std::size_t Offset;
    Bytes Raw;
    std::string Path; ///< below the root
    std::string Text;
    unsigned char Minor = 7;
};

void ExpectTexts(const std::vector<Case>& cases)
{
    for (const Case& each : cases)
        EXPECT_EQ(TextAt(Holding(each.Type, each.Offset, each.Raw, each.Minor), "/SMBIOS" + each.Path),
                  each.Text)
            << each.Path << " of " << static_cast<int>(each.Raw[0]);
}

TEST(Decoding, NumbersAndRawBytes)
{
    const Bytes ones(16, 0xFF);
    ExpectTexts({
        {11, 4, {0xFF}, "/Type11/StringCount", "255"},
        {0, 6, {0x34, 0x12}, "/Type0/BIOSStartAddressSegment", "4660"},
        {133, 4, {0x78, 0x56, 0x34, 0x12}, "/Type133/Address", "305419896"},
        {133, 4, ones, "/Type133/Address", "4294967295"},
        {38, 8, {1, 2, 3, 4, 5, 6, 7, 8}, "/Type38/BaseAddress", "578437695752307201"},
        {38, 8, {0, 0, 0, 0, 0, 0, 0, 0x80}, "/Type38/BaseAddress", "-9223372036854775808"},
        {38, 8, ones, "/Type38/BaseAddress", "-1"},
        {132, 0x0F, {0xAB}, "/Type132[1]/Reserved", "171"},
        {4, 8, {0xE9, 6, 3, 0, 0xFF, 0xFB, 0xEB, 0xBF}, "/Type4[1]/ProcessorId", "0Xe9060300fffbebbf"},
        {32, 4, {0x01, 0x02, 0x0A, 0x0B, 0x0C, 0xFF}, "/Type32/Reserved", "0X01020a0b0cff"},
        {32, 10, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 0x77}, "/Type32/BootStatus", "0X09080706050403020100"},
        {13, 6, ones, "/Type13/Reserved", "0X" + std::string(30, 'f')},
    });
}

// A number outside the set reads as empty, never as the field ahead of it.
TEST(Decoding, StringNumbers)
{
    Tree tree(Image({StructureOf(1, 1, 2, 3, 1, 255, Bytes(17), 0, 2).MoreText("one").MoreText("two")}));
    const std::pair<const char*, const char*> expected[] = {{"/Manufacturer", "two"}, {"/ProductName", ""},
                                                            {"/Version", "one"},      {"/SerialNo", ""},
                                                            {"/SKUNumber", ""},       {"/Family", "two"}};
    for (const auto& [field, text] : expected)
        EXPECT_EQ(tree.Leaf(std::string("/SMBIOS/Type1") + field), text) << field;
}

TEST(Decoding, Enumerations)
{
    ExpectTexts({
        {1, 0x18, {1}, "/Type1/WakeupType", "Other"},
        {1, 0x18, {2}, "/Type1/WakeupType", "Unknown"},
        {1, 0x18, {9}, "/Type1/WakeupType", ""},
        {1, 0x18, {0x81}, "/Type1/WakeupType", ""},
        {2, 0x0D, {0}, "/Type2[1]/BoardType", "Reserved"},
        {2, 0x0D, {1}, "/Type2[1]/BoardType", "Unknown"},
        {2, 0x0D, {2}, "/Type2[1]/BoardType", "Other"},
        {2, 0x0D, {200}, "/Type2[1]/BoardType", ""},
        {8, 5, {0x00}, "/Type8[1]/InternalConnectorType", "None"},
        {8, 5, {0xFF}, "/Type8[1]/InternalConnectorType", "Other"},
        {9, 5, {0xAB}, "/Type9[1]/SlotType", ""},
        {16, 4, {0x0B}, "/Type16[1]/Location", ""},
        {16, 4, {0xA3}, "/Type16[1]/Location", "PC-98/Local bus add-on card"},
        {38, 4, {0}, "/Type38/InterfaceType", "Unknown"},
    });
}

// The top bit is no part of the value: the chassis' lock, the device's enabled flag.
TEST(Decoding, MaskedEnumerations)
{
    ExpectTexts({
        {3, 5, {0x83}, "/Type3/ChassisType", "Desktop"},
        {3, 5, {0x9C}, "/Type3/ChassisType", "Blade"},
        {3, 5, {0x1C}, "/Type3/ChassisType", "", 6},
        {3, 5, {0xFF}, "/Type3/ChassisType", ""},
        {10, 4, {0x85}, "/Type10[1]/DeviceType", "Ethernet"},
        {10, 4, {0x8A}, "/Type10[1]/DeviceType", "SASController"},
    });
}

// A processor's family keeps its number in a leaf that no node lists.
TEST(Decoding, ProcessorFamilies)
{
    const std::string family = "/Type4[1]/ProcessorFamily", family2 = "/Type4[1]/ProcessorFamily2";
    ExpectTexts({
        {4, 6, {1}, family, "Other"},
        {4, 6, {1}, family + "_Raw", "1"},
        {4, 6, {0xFF}, family, ""},
        {4, 6, {0xFF}, family + "_Raw", "255"},
        {4, 0x28, {0x04, 0x01}, family2, "SH-3"},
        {4, 0x28, {0x04, 0x01}, family2 + "_Raw", "260"},
        {4, 0x28, {198, 0}, family2, ""},
        {4, 0x28, {198, 0}, family2 + "_Raw", "198"},
        {4, 0x28, {0x04, 0x01}, family2, "(no node)", 5},
        {4, 0x19, {3}, "/Type4[1]/Upgrade_Raw", "(no node)"},
        {1, 0x18, {1}, "/Type1/WakeupType_Raw", "(no node)"},
    });
}

TEST(Decoding, PackedFieldsOfProcessors)
{
    const std::string voltage = "/Type4[1]/VoltageCapability", status = "/Type4[1]/Status";
    const std::string end = "Supported\n\t\t";
    ExpectTexts({
        {4, 0x11, {0x91}, voltage, "1.70V"},
        {4, 0x11, {0x80}, voltage, "0.00V"},
        {4, 0x11, {0xFF}, voltage, "12.70V"},
        {4, 0x11, {0x00}, voltage, ""},
        {4, 0x11, {0x78}, voltage, ""},
        {4, 0x11, {0x01}, voltage, "5V" + end},
        {4, 0x11, {0x06}, voltage, "3.3V" + end + "2.9V" + end},
        {4, 0x18, {0x41}, status, "CPU Enabled, Yes"},
        {4, 0x18, {0xC1}, status, "CPU Enabled, Yes"},
        {4, 0x18, {0x00}, status, "Unknown, No"},
        {4, 0x18, {0x02}, status, "CPU Disabled by User via BIOS Setup, No"},
        {4, 0x18, {0x07}, status, "Other, No"},
        {4, 0x18, {0xB8}, status, "Unknown, No"},
    });
}

TEST(Decoding, PackedFieldsOfCaches)
{
    const std::string size = "/Type7[1]/MaxCacheSize", configuration = "/Type7[1]/CacheConfiguration";
    ExpectTexts({
        {7, 7, {0x20, 0x00}, size, "32, 1K Granularity"},
        {7, 7, {0x20, 0x80}, size, "32, 64K Granularity"},
        {7, 7, {0xFF, 0xFF}, size, "32767, 64K Granularity"},
        {7, 9, {0x00, 0x00}, "/Type7[1]/InstalledSize", "0, 1K Granularity"},
        {7, 5, {0x80, 0x01}, configuration, "L1Cache, NotSocketed, Internal, Enabled, Write Back"},
        {7, 5, {0x00, 0x00}, configuration, "L1Cache, NotSocketed, Internal, Disabled, Write Through"},
        {7, 5, {0xFF, 0x03}, configuration, "L8Cache, Socketed, Unknown, Enabled, Unknown"},
        {7,
         5,
         {0x42, 0x02},
         configuration,
         "L3Cache, NotSocketed, Reserved, Disabled, Varies with Memory Address"},
        {7, 5, {0x30, 0xFC}, configuration, "L1Cache, NotSocketed, External, Disabled, Write Through"},
    });
}

TEST(Decoding, PackedFieldsOfTheRest)
{
    const Bytes counted = {0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77,
                           0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
    const std::string security = "/Type24/HardwareSecuritySettings";
    ExpectTexts({
        {0, 9, {0x00}, "/Type0/BIOSRomSize", "64"},
        {0, 9, {0x0F}, "/Type0/BIOSRomSize", "1024"},
        {0, 9, {0xFF}, "/Type0/BIOSRomSize", "16384"},
        {13, 5, {0}, "/Type13/Flags", "Current Language Format/Long Format"},
        {13, 5, {1}, "/Type13/Flags", "Current Language Format/Abbreviated Format"},
        {13, 5, {2}, "/Type13/Flags", "Current Language Format/Long Format"},
        {24, 4, {0x1B}, security, "Unknown, Not Implemented, Enabled, Disabled"},
        {24, 4, {0x40}, security, "Disabled, Disabled, Disabled, Enabled"},
        {38, 5, {0x00}, "/Type38/IPMISpecRev", "0.0"},
        {38, 5, {0x15}, "/Type38/IPMISpecRev", "1.5"},
        {38, 5, {0xF0}, "/Type38/IPMISpecRev", "15.0"},
        {1, 8, counted, "/Type1/UUID", "33221100-5544-7766-8899-aabbccddeeff"},
        {1, 8, counted, "/Type1/UUID", "33221100-5544-7766-8899-aabbccddeeff", 3},
        {1, 8, Bytes(16, 0xFF), "/Type1/UUID", "ffffffff-ffff-ffff-ffff-ffffffffffff"},
        {1, 8, Bytes(16), "/Type1/UUID", "00000000-0000-0000-0000-000000000000"},
    });
}

TEST(Decoding, Bits)
{
    const std::string characteristics = "/Type0/BIOSCharacteristics";
    const struct {
        unsigned char Type;
        std::size_t Offset;
        Bytes Raw;
        std::string Path;
        std::size_t Reported;
        std::string Set;
        unsigned char Minor = 7;
    } cases[] = {
        {0, 0x0A, {0x10, 0, 0, 0, 0, 0, 0, 0}, characteristics, 28, "/ISA"},
        {0, 0x0A, {0x0F, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}, characteristics, 28, ""},
        {0, 0x0A, {0x0F, 0, 0, 0x80, 0, 0, 0, 0x80}, characteristics, 28, "/NEC PC - 98"},
        {0, 0x13, {0x0C}, characteristics + "ExtensionByte2", 3, "/Enable Targeted Content Distribution", 6},
        {0, 0x13, {0x18}, characteristics + "ExtensionByte2", 5, "/UEFI Specification/Virtualized Platform"},
        {2, 9, {0x00}, "/Type2[1]/FeatureFlags", 5, ""},
        {2,
         9,
         {0xFC},
         "/Type2[1]/FeatureFlags",
         5,
         "/the board is removable/board is replaceable/board is hot swappable"},
        {4, 0x26, {0x04, 0x80}, "/Type4[1]/Characteristics", 6, "/64 bit capable"},
        {4, 0x26, {0xFC, 0xFF}, "/Type4[1]/Characteristics", 1, "/64 bit capable", 6},
        {9, 0x0B, {0x03}, "/Type9[1]/SlotCharacteristics1", 7, "/Provides 5.0 Volts"},
        {17, 0x13, {0x00, 0x90}, "/Type17[1]/TypeDetail", 13, "/Non-volatile/LRDIMM"},
        {17, 0x13, {0x00, 0x90}, "/Type17[1]/TypeDetail", 10, "/Non-volatile", 6},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Path + " of " + std::to_string(each.Raw[0]));
        Tree tree = Holding(each.Type, each.Offset, each.Raw, each.Minor);
        const std::string path = "/SMBIOS" + each.Path;
        std::string set;
        for (const std::string& child : tree.Children(path)) {
            const std::string state = tree.Leaf(path + child);
            set += state == "Supported" ? child : "";
            EXPECT_TRUE(state == "Supported" || state == "Not Supported") << child << state;
        }
        EXPECT_EQ(tree.Children(path).size(), each.Reported);
        EXPECT_EQ(set, each.Set);
    }
}

TEST(Decoding, NamesOfChildren)
{
    using Names = std::vector<std::string>;
    Tree tree(TwoSocketServer());
    const std::string cache = "/SMBIOS/Type7[1]";
    EXPECT_EQ(tree.Children("/SMBIOS/Type4[1]/Status"), (Names{"/CPUStatus", "/CPU Socket Populated"}));
    EXPECT_EQ(tree.Children("/SMBIOS/Type24/HardwareSecuritySettings"),
              (Names{"/FrontPanelReset", "/AdministratorPassword", "/KeyboardPassword", "/PowerOnPassword"}));
    EXPECT_EQ(tree.Children(cache),
              (Names{"/SocketDesignation", "/CacheConfiguration", "/MaxCacheSize", "/InstalledSize",
                     "/SupportedSRAMType", "/CurrentSRAMType", "/CacheSpeed", "/ErrorCorrectionType",
                     "/SystemCacheType", "/Associativity"}));
    EXPECT_EQ(tree.Children(cache + "/CacheConfiguration"),
              (Names{"/CacheLevel", "/Cache Socketed", "/Location", "/At Boot Time", "/Operation Mode"}));
    EXPECT_EQ(tree.Children(cache + "/InstalledSize"), (Names{"/Size", "/Unit"}));
    EXPECT_EQ(tree.Children(cache + "/CurrentSRAMType"),
              (Names{"/Non Burst", "/Burst", "/Pipeline Burst", "/Synchronous", "/Asynchronous"}));
}

} // namespace
