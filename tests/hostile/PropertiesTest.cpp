// What holds for every table: for those of the files with cases, `tests-properties FILE...`, for the samples
// in every version, and for one that is cut off at many lengths. Ends at a property that does not hold.
//
// `tests-properties --seeds FOLDER FILE...` writes the small tables of the files there, for the fuzzer.

#include "Properties.h"
#include "samples/Machines.h"
#include "samples/TableText.h"
#include "support/Cases.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using Images::Bytes;

constexpr std::size_t LargestImage = 65'535;

// The image of what is done in a try; none of a machine's memory, nor of as many structures as there may be.
Bytes ImageOf(const std::string& given)
{
    std::istringstream lines(given);
    std::string table;
    for (std::string line, word; std::getline(lines, line);) {
        std::istringstream(line) >> word;
        if (word == "machine" || word == "Nx")
            return {};
        if (word != "root" && word != "sample" && word != "reading" && word != "as")
            table += line + "\n";
    }
    return Images::ImageFromText(table);
}

// Calls `work` with the images of a file's cases, as far as an object takes them.
void WithImages(const std::string& file, const std::function<void(const Bytes&)>& work)
{
    for (const auto& [name, text] : Cases::Of(file)) {
        for (const Cases::Try& each : Cases::TriesOf(text)) {
            const Bytes image = ImageOf(each.Given);
            if (!image.empty() && image.size() <= LargestImage)
                work(image);
        }
    }
}

// The image as an input for each route, as Properties.h has it.
std::vector<Bytes> InputsOf(const Bytes& image)
{
    constexpr std::uint32_t TableAddress = 0xE0000;
    Bytes segment = Images::Join({0x10, 0}, Images::EntryPoint(2, 7, image.size(), TableAddress));
    segment.push_back(0); // up to the table
    return {Images::Join({0}, image), Images::Join({1}, image),
            Images::Join({2}, Images::Join(Images::BlockHeader(2, 7, image.size()), image)),
            Images::Join({3}, Images::Join(segment, image))};
}

void CheckAll(const Bytes& image)
{
    for (const Bytes& input : InputsOf(image)) {
        if (!Properties::Check(input.data(), input.size(), Properties::Effort::Whole))
            return; // as large on each route
    }
}

// The sample's table ahead of an entry point of each version that is read.
void CheckVersions(const Bytes& sample)
{
    const Bytes table(sample.begin(), sample.end() - 31);
    for (const auto& [major, minor] : {std::pair(2, 3), {2, 4}, {2, 5}, {2, 6}, {2, 7}, {2, 8}, {3, 0}})
        CheckAll(Images::Image(table, static_cast<unsigned char>(major), static_cast<unsigned char>(minor)));
}

// Behind its entry point, so that the image ends where the table does.
void CheckLengths(const Bytes& sample)
{
    const Bytes front = Images::Structure(200, 0).Raw(Images::EntryPoint(2, 7)).Finished();
    for (std::ptrdiff_t size = 0; size < 1'000; size += 5) {
        const Bytes input = Images::Join({0}, Images::Join(front, {sample.begin(), sample.begin() + size}));
        Properties::Check(input.data(), input.size(), Properties::Effort::Whole);
    }
}

// Most of what can go wrong fits into a small table.
void WriteSeeds(const std::filesystem::path& folder, const Bytes& image)
{
    static unsigned int number = 0;
    for (const Bytes& input : InputsOf(image)) {
        if (image.size() <= 1'024)
            std::ofstream(folder / ("seed-" + std::to_string(number++)), std::ios::binary)
                .write(reinterpret_cast<const char*>(input.data()),
                       static_cast<std::streamsize>(input.size()));
    }
}

} // namespace

int main(int count, char* arguments[])
{
    if (count > 2 && std::string(arguments[1]) == "--seeds") {
        std::filesystem::create_directories(arguments[2]);
        for (int i = 3; i < count; ++i)
            WithImages(arguments[i], [&](const Bytes& image) { WriteSeeds(arguments[2], image); });
        return 0;
    }
    CheckVersions(Images::TwoSocketServer());
    CheckVersions(Images::Desktop());
    CheckLengths(Images::TwoSocketServer());
    std::size_t images = 0;
    for (int i = 1; i < count; ++i)
        WithImages(arguments[i], [&](const Bytes& image) { CheckAll(image), ++images; });
    std::printf("%zu tables\n", images);
    return images == 0 ? 1 : 0;
}
