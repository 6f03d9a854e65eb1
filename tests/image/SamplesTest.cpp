// The files of samples/ are what make-samples writes, and read as the files beside this one say: they are the
// output of `smbios-tree --flat`.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace {

std::string FileText(const std::string& name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Samples, AreFreshAndReadAsBefore)
{
    const std::pair<std::string, TestImages::Bytes> samples[] = {
        {"two-socket-server", TestImages::TwoSocketServer()}, {"desktop-2.4", TestImages::Desktop()}};
    for (const auto& [name, image] : samples) {
        EXPECT_EQ(FileText(SAMPLES "/" + name + ".bin"), std::string(image.begin(), image.end()))
            << "run scripts/generate";
        EXPECT_LT(image.size(), 8192U);

        std::istringstream expected(FileText(TREES "/" + name + ".tree"));
        for (const std::string& leaf : Tree(image).Leaves("/SMBIOS")) {
            std::string line;
            if (leaf.find(" (inner)") != std::string::npos)
                continue;
            std::getline(expected, line);
            ASSERT_EQ("/SMBIOS" + leaf, line);
        }
        EXPECT_EQ(expected.peek(), std::char_traits<char>::eof());
    }
}

} // namespace
