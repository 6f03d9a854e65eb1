// Replays the cases of this folder: a table in, its tree or its refusal out. What is done reads as
// samples/TableText.h says, and besides:
//
//   sample NAME   the image of samples/NAME.bin
//   root PATH     where the tree's root stands, in the place of /SMBIOS
//   whole         blank values are shown too
//   reading WAY   as a TableImage of the bytes, "newest" or "by-version"; else the image constructor has them
//   as VERSION    that TableImage, with another version

#include "samples/TableText.h"
#include "support/Cases.h"
#include "support/Tree.h"

#include <fstream>
#include <iterator>

using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::TableImage;

namespace {

Images::Bytes Sample(const std::string& name)
{
    std::ifstream file(SAMPLES "/" + name + ".bin", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TableImage As(const TableImage& table, const std::string& version)
{
    return table.As(std::stoi(version), std::stoi(version.substr(version.find('.') + 1)));
}

std::string Replayed(const std::string& text)
{
    std::string table = Cases::Given(text);
    const auto samples = Cases::TakeLines(table, "sample"), roots = Cases::TakeLines(table, "root");
    const bool isWhole = !Cases::TakeLines(table, "whole").empty();
    const auto readings = Cases::TakeLines(table, "reading");
    const std::string root = roots.empty() ? "/SMBIOS" : roots[0];
    const auto versions = Cases::TakeLines(table, "as");
    const Images::Bytes image = samples.empty() ? Images::ImageFromText(table) : Sample(samples[0]);
    const auto make = [&] {
        if (readings.empty())
            return Decoded(image, root);
        const auto reading = readings[0] == "newest" ? Reading::Newest : Reading::ByVersion;
        const TableImage whole = TableImage::FromBytes(image);
        return std::make_unique<SMBIOSProtocolImpl>(versions.empty() ? whole : As(whole, versions[0]),
                                                    reading, root);
    };
    const bool isNewest = !readings.empty() && readings[0] == "newest";
    return Cases::AsGiven(text) +
           Outcome(make, ShownIn(text, "all"), isWhole ? Blanks() : BlanksOf(isNewest), root);
}

} // namespace

int main(int count, char* arguments[])
{
    return Cases::Run(count, arguments, Replayed);
}
