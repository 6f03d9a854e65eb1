// The life of an object: copies, assignments, ends, and classes derived from it.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

using namespace TestImages;

namespace {

// A source, its copy, and one to which the copy was assigned, ended in every order, beside another machine.
TEST(Instance, CopiesOutliveEachOther)
{
    const auto desktop = Decoded(Desktop());
    const std::string desktopText = TextOf(*desktop), serverText = TextOf(*Decoded(TwoSocketServer()));
    EXPECT_NE(serverText, desktopText);
    std::array<std::size_t, 3> order = {0, 1, 2};
    do {
        std::array<std::unique_ptr<SMBIOSProtocolImpl>, 3> objects;
        objects[0] = Decoded(TwoSocketServer());
        objects[1] = std::make_unique<SMBIOSProtocolImpl>(*objects[0]);
        objects[2] = Decoded(Desktop());
        EXPECT_EQ(&(*objects[2] = *objects[1]), objects[2].get());
        SMBIOSProtocolImpl& itself = *objects[2];
        *objects[2] = itself; // cppcheck-suppress selfAssignment ; it must do nothing
        for (const std::size_t ended : order) {
            for (const auto& object : objects)
                EXPECT_TRUE(object == nullptr || TextOf(*object) == serverText);
            objects[ended].reset();
        }
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(TextOf(*desktop), desktopText);
}

// The table has a type 133 structure; a live object alone gives its range.
TEST(Instance, AnImageHasNoReservedMemory)
{
    unsigned int address = 1, size = 1;
    Decoded(TwoSocketServer())->GetBiosReservedMem(&address, &size);
    EXPECT_EQ(address, 0U);
    EXPECT_EQ(size, 0U);
}

class Spy : public SMBIOSProtocolImpl {
public:
    using SMBIOSProtocolImpl::SMBIOSProtocolImpl;

    void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) override
    {
        Asked.push_back(path);
        SMBIOSProtocolImpl::SMBiosSearch(path, results);
    }

    std::vector<std::string> Asked;
};

TEST(Instance, ADerivedClassSeesEachDescent)
{
    Bytes image = TwoSocketServer();
    Spy spy(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");
    EXPECT_EQ(TextOf(spy), TextOf(*Decoded(image)));
    EXPECT_EQ(spy.Asked.size(), Tree(image).Search("/SMBIOS").size());

    const std::string status = "/SMBIOS/Type4[1]/Status";
    spy.Asked.clear();
    SearchResult nodes;
    spy.SMBiosSearch(status, nodes);
    EXPECT_EQ(spy.Asked,
              (std::vector<std::string>{status, status + "/CPUStatus", status + "/CPU Socket Populated"}));
}

} // namespace
