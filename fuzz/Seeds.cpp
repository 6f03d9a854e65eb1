#include "Seeds.h"

#include "samples/TableText.h"
#include "support/Cases.h"

namespace Seeds {

std::vector<Images::Bytes> ImagesOf(const std::string& file)
{
    std::vector<Images::Bytes> images;
    for (const auto& [name, text] : Cases::Of(file)) {
        std::string table = Cases::Given(text);
        for (const char* word : {"root", "whole", "sample", "reading", "as", "largest", "live"})
            Cases::TakeLines(table, word);
        if (!Cases::TakeLines(table, "Nx").empty())
            continue;
        const Images::Bytes image = Images::ImageFromText(table);
        if (image.size() <= LargestImage)
            images.push_back(image);
    }
    return images;
}

std::vector<Images::Bytes> InputsOf(const Images::Bytes& image)
{
    constexpr std::uint32_t TableAddress = 0xE0000;
    Images::Bytes segment = Images::Join({0x10, 0}, Images::EntryPoint(2, 7, image.size(), TableAddress));
    segment.push_back(0); // up to the table
    return {Images::Join({0}, image), Images::Join({1}, image),
            Images::Join({2}, Images::Join(Images::BlockHeader(2, 7, image.size()), image)),
            Images::Join({3}, Images::Join(segment, image))};
}

} // namespace Seeds
