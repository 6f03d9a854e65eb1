#include "Seeds.h"

#include "samples/TableText.h"
#include "support/Cases.h"
#include "support/Tree.h"

namespace Seeds {

namespace {

constexpr std::size_t LargestTree = 3'000; ///< a larger one slows a fuzzer down

bool IsSmall(const Images::Bytes& image)
{
    try {
        return image.size() <= 65'535 && Everything(*Decoded(image)).size() <= LargestTree;
    } catch (const ResultStatus&) {
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

std::vector<Images::Bytes> ImagesOf(const std::string& file)
{
    std::vector<Images::Bytes> images;
    for (const auto& [name, text] : Cases::Of(file)) {
        std::string table = Cases::Given(text);
        for (const char* word : {"root", "show", "sample", "reading", "as", "largest", "live"})
            Cases::TakeLines(table, word);
        if (!Cases::TakeLines(table, "Nx").empty())
            continue;
        const Images::Bytes image = Images::ImageFromText(table);
        if (IsSmall(image))
            images.push_back(image);
    }
    return images;
}

std::vector<Images::Bytes> InputsOf(const Images::Bytes& image, unsigned int test)
{
    constexpr std::uint32_t TableAddress = 0xE0000;
    const auto control = [test](unsigned int route) {
        return Images::Bytes{static_cast<unsigned char>(test << 2 | route)};
    };
    Images::Bytes segment = Images::Join({0x10, 0}, Images::EntryPoint(2, 7, image.size(), TableAddress));
    segment.push_back(0); // up to the table
    return {Images::Join(control(0), image), Images::Join(control(1), image),
            Images::Join(control(2), Images::Join(Images::BlockHeader(2, 7, image.size()), image)),
            Images::Join(control(3), Images::Join(segment, image))};
}

} // namespace Seeds
