// Writes the seeds of the fuzzers: `fuzz_seeds FOLDER` fills FOLDER/image, FOLDER/live and FOLDER/firmware.

#include "hostile/HostileImages.h"
#include "support/FakeSystem.h"
#include "support/SampleServer.h"
#include "support/Tree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using TestImages::Bytes;
using TestImages::Join;

constexpr std::size_t LargestTree = 3'000; ///< a larger one slows a fuzzer down
constexpr std::uint32_t TableAddress = 0xE0000;

bool IsLarge(const Bytes& image)
{
    try {
        return Tree(image).Search("/SMBIOS").size() > LargestTree;
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        return true;
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
    images.erase(std::remove_if(images.begin(), images.end(), IsLarge), images.end());
    return images;
}

Bytes LiveInput(const Bytes& table)
{
    Bytes input = Join({0x80, 0x10, 0}, TestImages::EntryPoint(2, 7, table.size(), TableAddress));
    input.push_back(0); // up to the table
    return Join(input, table);
}

Bytes FirmwareInput(const Bytes& table)
{
    return Join({0}, FakeSystem::Machine::WithBlock(table).Block);
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
