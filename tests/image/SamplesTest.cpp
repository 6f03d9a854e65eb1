// The files of samples/ are what make-samples writes, and show what the documents say of them.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

constexpr std::size_t SizeLimit = 8192;

TestImages::Bytes FileBytes(const std::string& name)
{
    std::ifstream file(std::string(SAMPLES) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Samples, AreFresh)
{
    EXPECT_EQ(FileBytes("two-socket-server.bin"), TestImages::TwoSocketServer()) << "run scripts/generate";
    EXPECT_EQ(FileBytes("desktop-2.4.bin"), TestImages::Desktop()) << "run scripts/generate";
    EXPECT_LT(TestImages::TwoSocketServer().size(), SizeLimit);
    EXPECT_LT(TestImages::Desktop().size(), SizeLimit);
}

TEST(Samples, ShowWhatTheyAreFor)
{
    const struct {
        std::string Path, Text;
    } leaves[] = {
        {"/Type1/ProductName", "Tarn R240"},
        {"/ProcessorInfo/TotalNoOfProcessorPresent", "1"},
        {"/ProcessorInfo[1]/L3CacheHandle/InstalledSize/Size", "320"},
        {"/ProcessorInfo[2]/L1CacheHandle", "65535"},
        {"/MemoryArray[1]/MemoryErrorInfoHandle/ErrorType", "OK"},
        {"/MemoryArray[1]/MemoryDevice[2]/Size", "16384"},
        {"/MemoryArray[1]/MemoryDevice[2]/MemoryErrorInfoHandle/ErrorType", "Corrected single-bit error"},
        {"/MemoryArray[1]/TotalNoOfDevicePresent", "3"},
        {"/MemoryArray[2]/MemoryDevice[4]/DeviceLocator", "DIMM D2"},
        {"/MemoryArray[2]/TotalNoOfDevicePresent", "0"},
    };
    Tree server(TestImages::TwoSocketServer());
    for (const auto& leaf : leaves)
        EXPECT_EQ(server.Leaf("/SMBIOS" + leaf.Path), leaf.Text) << leaf.Path;
    for (const std::string& child : server.Children("/SMBIOS"))
        EXPECT_FALSE(server.Children("/SMBIOS" + child).empty()) << child;

    Tree desktop(TestImages::Desktop());
    EXPECT_EQ(desktop.Leaf("/SMBIOS/Type9[1]/SlotType"), "PCI Express");
    EXPECT_FALSE(desktop.Has("/SMBIOS/Type4[1]/CoreCount"));
    EXPECT_FALSE(desktop.Has("/SMBIOS/Type132"));
}

} // namespace
