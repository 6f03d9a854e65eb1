// What holds for every table: for those of the files with cases, `tests-properties FILE...`, for the samples
// in every version, and for one that is cut off at many lengths. Ends at a property that does not hold.
//
// `tests-properties --seeds FOLDER FILE...` writes the small tables of the files there, for the fuzzer.

#include "Properties.h"
#include "Seeds.h"
#include "samples/Machines.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

void CheckAll(const Images::Bytes& image)
{
    for (const Images::Bytes& input : Seeds::InputsOf(image)) {
        if (!Properties::Check(input.data(), input.size(), Properties::Effort::Whole))
            return; // as large on each route
    }
}

// The sample's table ahead of an entry point of each version that is read.
void CheckVersions(const Images::Bytes& sample)
{
    const Images::Bytes table(sample.begin(), sample.end() - 31);
    for (const auto& [major, minor] : {std::pair(2, 3), {2, 4}, {2, 5}, {2, 6}, {2, 7}, {2, 8}, {3, 0}})
        CheckAll(Images::Image(table, static_cast<unsigned char>(major), static_cast<unsigned char>(minor)));
}

// Behind its entry point, so that the image ends where the table does.
void CheckLengths(const Images::Bytes& sample)
{
    const Images::Bytes front = Images::Structure(200, 0).Raw(Images::EntryPoint(2, 7)).Finished();
    for (std::ptrdiff_t size = 0; size < 1'000; size += 5) {
        const Images::Bytes image = Images::Join(front, {sample.begin(), sample.begin() + size});
        const Images::Bytes input = Images::Join({0}, image);
        Properties::Check(input.data(), input.size(), Properties::Effort::Whole);
    }
}

void WriteSeeds(const std::filesystem::path& folder, const std::vector<Images::Bytes>& images)
{
    constexpr std::size_t LargestSeed = 1'024; // most of what can go wrong fits into less
    static unsigned int number = 0;
    std::filesystem::create_directories(folder);
    for (const Images::Bytes& image : images) {
        for (const Images::Bytes& input :
             Seeds::InputsOf(image.size() > LargestSeed ? Images::Bytes() : image))
            std::ofstream(folder / ("seed-" + std::to_string(number++)), std::ios::binary)
                .write(reinterpret_cast<const char*>(input.data()),
                       static_cast<std::streamsize>(input.size()));
    }
}

} // namespace

int main(int count, char* arguments[])
{
    if (count > 2 && std::string(arguments[1]) == "--seeds") {
        for (int i = 3; i < count; ++i)
            WriteSeeds(arguments[2], Seeds::ImagesOf(arguments[i]));
        return 0;
    }
    CheckVersions(Images::TwoSocketServer());
    CheckVersions(Images::Desktop());
    CheckLengths(Images::TwoSocketServer());
    std::size_t images = 0;
    for (int i = 1; i < count; ++i) {
        for (const Images::Bytes& image : Seeds::ImagesOf(arguments[i])) {
            CheckAll(image);
            ++images;
        }
    }
    std::printf("%zu tables\n", images);
    return images == 0 ? 1 : 0;
}
