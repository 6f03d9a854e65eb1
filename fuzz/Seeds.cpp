#include "Seeds.h"

#include "samples/TableText.h"
#include "support/Cases.h"

#include <sstream>

namespace Seeds {

namespace {

// None of a machine's memory, nor of as many structures as there may be.
Images::Bytes ImageOf(const std::string& given)
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

} // namespace

std::vector<Images::Bytes> ImagesOf(const std::string& file)
{
    std::vector<Images::Bytes> images;
    for (const auto& [name, text] : Cases::Of(file)) {
        for (const Cases::Try& each : Cases::TriesOf(text)) {
            const Images::Bytes image = ImageOf(each.Given);
            if (!image.empty() && image.size() <= LargestImage)
                images.push_back(image);
        }
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
