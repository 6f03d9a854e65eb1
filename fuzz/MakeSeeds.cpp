// Writes the seeds of the fuzzers: `fuzz_seeds FOLDER` fills FOLDER/image, FOLDER/live and FOLDER/firmware.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "hostile/HostileImages.h"
#include "support/SampleServer.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using TestImages::Bytes;

constexpr std::size_t LargestTree = 3'000; ///< a larger one slows a fuzzer down
constexpr std::uint32_t TableAddress = 0xE0000;

bool IsSmall(Bytes image)
{
    try {
        Protocol::SMBIOS::SMBIOSProtocolImpl object(image.data(), static_cast<unsigned short>(image.size()),
                                                    "/SMBIOS");
        std::map<std::string, _XNode> tree;
        object.SMBiosSearch("/SMBIOS", tree);
        return tree.size() <= LargestTree;
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        return false;
    }
}

std::vector<Bytes> Images()
{
    std::vector<Bytes> images{TestImages::TwoSocketServer(), TestImages::Desktop()};
    for (const HostileImages::HostileImage& each : HostileImages::All())
        images.push_back(each.Image);
    for (const HostileImages::Family& family : HostileImages::Families)
        images.push_back(family.Build(2));
    for (unsigned char minor = 3; minor <= 7; ++minor)
        images.push_back(TestImages::Image(HostileImages::FloodOfBlocks(20, 0), 2, minor));
    const auto isLarge = [](const Bytes& image) { return !IsSmall(image); };
    images.erase(std::remove_if(images.begin(), images.end(), isLarge), images.end());
    return images;
}

Bytes Joined(Bytes first, const Bytes& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Bytes LiveInput(const Bytes& table)
{
    Bytes entryPoint = TestImages::EntryPoint(2, 7, static_cast<std::uint16_t>(table.size()), TableAddress);
    entryPoint.push_back(0); // up to the table
    return Joined(Joined({0x80, 0x10, 0}, entryPoint), table);
}

Bytes FirmwareInput(const Bytes& table)
{
    const std::size_t length = table.size();
    return Joined(
        {0, 0, 2, 7, 0, static_cast<unsigned char>(length), static_cast<unsigned char>(length >> 8), 0, 0},
        table);
}

void Write(const std::filesystem::path& file, const Bytes& bytes)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace

int main(int count, char* arguments[])
{
    if (count != 2)
        return 2;
    const std::filesystem::path folder = arguments[1];
    std::size_t number = 0;
    for (const Bytes& image : Images()) {
        const std::string name = "seed-" + std::to_string(number++);
        Write(folder / "image" / name, image);
        Write(folder / "live" / name, LiveInput(image));
        Write(folder / "firmware" / name, FirmwareInput(image));
    }
    return 0;
}
