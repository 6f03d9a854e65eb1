// From bytes to text: numbers, strings, enumerations, bits, and the packed fields of each decoder.

#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

struct Case {
    unsigned char Type;
    std::size_t Offset;
    Bytes Raw;
    std::string Path; ///< below the root
    std::string Text; ///< of a leaf; of an inner node its leaves' texts, one behind the other
    unsigned char Minor = 7;
};

// Of one structure, all zeros but for `Raw` at `Offset`.
void ExpectTexts(const std::vector<Case>& cases)
{
    constexpr std::size_t HeaderSize = 4, LongEnough = 64;
    for (const Case& each : cases) {
        Tree tree(
            Image({StructureOf(each.Type, 1, Bytes(each.Offset - HeaderSize), each.Raw, Bytes(LongEnough))},
                  2, each.Minor));
        const std::string path = "/SMBIOS" + each.Path;
        std::string text = tree.Leaf(path);
        if (text == "(inner)") {
            text.clear();
            for (const std::string& child : tree.Children(path))
                text += (text.empty() ? "" : ", ") + tree.Leaf(path + child);
        }
        EXPECT_EQ(text, each.Text) << each.Path << " of " << static_cast<int>(each.Raw[0]);
    }
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
        {4, 8, {0xE9, 6, 3, 0, 0xFF, 0xFB, 0xEB, 0xBF}, "/Type4[1]/ProcessorId", "0Xe9060300fffbebbf"},
        {32, 10, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 0x77}, "/Type32/BootStatus", "0X09080706050403020100"},
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

// A value without a text reads as empty. The top bit of a chassis (its lock) and of a device (enabled) is no
// part of the value. A processor's family keeps its number in a leaf that no node lists.
TEST(Decoding, Enumerations)
{
    const std::string family = "/Type4[1]/ProcessorFamily", family2 = "/Type4[1]/ProcessorFamily2";
    ExpectTexts({
        {1, 0x18, {1}, "/Type1/WakeupType", "Other"},
        {1, 0x18, {9}, "/Type1/WakeupType", ""},
        {1, 0x18, {0x81}, "/Type1/WakeupType", ""},
        {1, 0x18, {1}, "/Type1/WakeupType_Raw", "(no node)"},
        {2, 0x0D, {0}, "/Type2[1]/BoardType", "Reserved"},
        {8, 5, {0xFF}, "/Type8[1]/InternalConnectorType", "Other"},
        {9, 5, {0xAB}, "/Type9[1]/SlotType", ""},
        {3, 5, {0x83}, "/Type3/ChassisType", "Desktop"},
        {3, 5, {0x9C}, "/Type3/ChassisType", "Blade"},
        {3, 5, {0x1C}, "/Type3/ChassisType", "", 6},
        {3, 5, {0xFF}, "/Type3/ChassisType", ""},
        {10, 4, {0x85}, "/Type10[1]/DeviceType", "Ethernet"},
        {4, 6, {1}, family, "Other"},
        {4, 6, {0xFF}, family, ""},
        {4, 6, {0xFF}, family + "_Raw", "255"},
        {4, 0x28, {0x04, 0x01}, family2, "SH-3"},
        {4, 0x28, {0x04, 0x01}, family2 + "_Raw", "260"},
        {4, 0x28, {198, 0}, family2, ""},
        {4, 0x28, {0x04, 0x01}, family2, "(no node)", 5},
    });
}

TEST(Decoding, PackedFields)
{
    const std::string voltage = "/Type4[1]/VoltageCapability", status = "/Type4[1]/Status";
    const std::string end = "Supported\n\t\t", security = "/Type24/HardwareSecuritySettings";
    const std::string size = "/Type7[1]/MaxCacheSize", configuration = "/Type7[1]/CacheConfiguration";
    Bytes counted(16);
    for (std::size_t i = 0; i < counted.size(); ++i)
        counted[i] = static_cast<unsigned char>(0x11 * i);
    ExpectTexts({
        {4, 0x11, {0x91}, voltage, "1.70V"},
        {4, 0x11, {0x80}, voltage, "0.00V"},
        {4, 0x11, {0xFF}, voltage, "12.70V"},
        {4, 0x11, {0x78}, voltage, ""},
        {4, 0x11, {0x01}, voltage, "5V" + end},
        {4, 0x11, {0x06}, voltage, "3.3V" + end + "2.9V" + end},
        {4, 0x18, {0xC1}, status, "CPU Enabled, Yes"},
        {4, 0x18, {0x02}, status, "CPU Disabled by User via BIOS Setup, No"},
        {4, 0x18, {0x07}, status, "Other, No"},
        {4, 0x18, {0xB8}, status, "Unknown, No"},
        {7, 7, {0x20, 0x80}, size, "32, 64K Granularity"},
        {7, 7, {0xFF, 0x7F}, size, "32767, 1K Granularity"},
        {7, 9, {0xFF, 0xFF}, "/Type7[1]/InstalledSize", "32767, 64K Granularity"},
        {7, 5, {0x80, 0x01}, configuration, "L1Cache, NotSocketed, Internal, Enabled, Write Back"},
        {7, 5, {0xFF, 0x03}, configuration, "L8Cache, Socketed, Unknown, Enabled, Unknown"},
        {7,
         5,
         {0x42, 0x02},
         configuration,
         "L3Cache, NotSocketed, Reserved, Disabled, Varies with Memory Address"},
        {7, 5, {0x30, 0xFC}, configuration, "L1Cache, NotSocketed, External, Disabled, Write Through"},
        {0, 9, {0x00}, "/Type0/BIOSRomSize", "64"},
        {0, 9, {0xFF}, "/Type0/BIOSRomSize", "16384"},
        {13, 5, {1}, "/Type13/Flags", "Current Language Format/Abbreviated Format"},
        {13, 5, {2}, "/Type13/Flags", "Current Language Format/Long Format"},
        {24, 4, {0x1B}, security, "Unknown, Not Implemented, Enabled, Disabled"},
        {38, 5, {0x15}, "/Type38/IPMISpecRev", "1.5"},
        {38, 5, {0xF0}, "/Type38/IPMISpecRev", "15.0"},
        {1, 8, counted, "/Type1/UUID", "33221100-5544-7766-8899-aabbccddeeff"},
        {1, 8, counted, "/Type1/UUID", "33221100-5544-7766-8899-aabbccddeeff", 3},
    });
}

TEST(Decoding, Bits)
{
    const std::string yes = "Supported", no = "Not Supported";
    const auto states = [&](const std::string& bits) {
        std::string text;
        for (const char bit : bits)
            text += (text.empty() ? "" : ", ") + (bit == '1' ? yes : no);
        return text;
    };
    const std::string characteristics = "/Type0/BIOSCharacteristics", none(28, '0');
    ExpectTexts({
        {0, 0x0A, {0x10, 0, 0, 0}, characteristics, states("1" + none.substr(1))},
        {0, 0x0A, {0x0F, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}, characteristics, states(none)},
        {0, 0x0A, {0, 0, 0, 0x80, 0, 0, 0, 0x80}, characteristics, states(none.substr(1) + "1")},
        {0, 0x13, {0x0C}, characteristics + "ExtensionByte2", states("001"), 6},
        {0, 0x13, {0x18}, characteristics + "ExtensionByte2", states("00011")},
        {4, 0x26, {0x04, 0x80}, "/Type4[1]/Characteristics", states("100000")},
        {4, 0x26, {0xFC, 0xFF}, "/Type4[1]/Characteristics", states("1"), 6},
        {17, 0x13, {0x00, 0x90}, "/Type17[1]/TypeDetail", states("0000000001001")},
    });
}

} // namespace
