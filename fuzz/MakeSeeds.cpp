// Writes the fuzzer's seeds: `fuzz_seeds FOLDER FILE...`, from files with cases.

#include "Seeds.h"

#include <filesystem>
#include <fstream>

constexpr std::size_t LargestSeed = 1'024; ///< most of what can go wrong fits into less

int main(int count, char* arguments[])
{
    if (count < 3)
        return 2;
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    unsigned int number = 0;
    for (int i = 2; i < count; ++i) {
        for (const Images::Bytes& image : Seeds::ImagesOf(arguments[i])) {
            if (image.size() > LargestSeed)
                continue;
            for (const Images::Bytes& input : Seeds::InputsOf(image)) {
                std::ofstream stream(folder / ("seed-" + std::to_string(number++)), std::ios::binary);
                stream.write(reinterpret_cast<const char*>(input.data()),
                             static_cast<std::streamsize>(input.size()));
            }
        }
    }
    return 0;
}
