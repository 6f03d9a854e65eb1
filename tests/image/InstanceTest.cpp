// The life of an object: copies, assignments, ends, and classes derived from it.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <set>

using namespace TestImages;
using Protocol::SMBIOS::ISMBIOSProtocol;
using Protocol::SMBIOS::SMBIOSProtocolImpl;

namespace {

/// The image is gone when this returns.
std::unique_ptr<SMBIOSProtocolImpl> Object(Bytes image)
{
    return std::make_unique<SMBIOSProtocolImpl>(image.data(), static_cast<unsigned short>(image.size()),
                                                "/SMBIOS");
}

/// All of an object's tree as text.
std::string Text(ISMBIOSProtocol& object)
{
    SearchResult nodes;
    object.SMBiosSearch("/SMBIOS", nodes);
    std::string text;
    for (const auto& [path, node] : nodes) {
        text += path + (node.NodeType == NODE_LEAF ? " =" : " :");
        for (const std::string& item : node.Items)
            text += " " + item;
        text += "\n";
    }
    return text;
}

const std::string& ServerText()
{
    static const std::string text = Text(*Object(TwoSocketServer()));
    return text;
}

const std::string& DesktopText()
{
    static const std::string text = Text(*Object(Desktop()));
    return text;
}

TEST(Instance, ObjectsStandSideBySide)
{
    const std::unique_ptr<ISMBIOSProtocol> server = Object(TwoSocketServer());
    auto desktop = Object(Desktop());
    EXPECT_NE(ServerText(), DesktopText());
    const auto server2 = Object(TwoSocketServer());
    EXPECT_EQ(Text(*desktop), DesktopText());
    desktop.reset();
    EXPECT_EQ(Text(*server), ServerText());
    EXPECT_EQ(Text(*server2), ServerText());
}

// A source, its copy, and one to which the copy was assigned, ended in every order.
TEST(Instance, CopiesOutliveEachOther)
{
    std::array<std::size_t, 3> order = {0, 1, 2};
    do {
        std::array<std::unique_ptr<SMBIOSProtocolImpl>, 3> objects;
        objects[0] = Object(TwoSocketServer());
        objects[1] = std::make_unique<SMBIOSProtocolImpl>(*objects[0]);
        objects[2] = Object(Desktop());
        *objects[2] = *objects[1];
        for (const std::size_t ended : order) {
            for (const auto& object : objects)
                EXPECT_TRUE(object == nullptr || Text(*object) == ServerText());
            objects[ended].reset();
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(Instance, Assignment)
{
    const auto server = Object(TwoSocketServer());
    const auto desktop = Object(Desktop());
    const auto target = Object(Desktop());
    SMBIOSProtocolImpl& itself = *target;

    EXPECT_EQ(&(*target = *server), target.get());
    EXPECT_EQ(Text(*target), ServerText());
    *target = itself;
    EXPECT_EQ(Text(*target), ServerText());
    *target = *desktop;
    EXPECT_EQ(Text(*target), DesktopText());
    EXPECT_EQ(Text(*server), ServerText()) << "a source stays as it was";
    *desktop = *target;
    EXPECT_EQ(Text(*desktop), DesktopText()) << "assigned back from its own copy";
}

// The table has a type 133 structure; a live object alone gives its range.
TEST(Instance, AnImageHasNoReservedMemory)
{
    const auto object = Object(TwoSocketServer());
    unsigned int address = 1, size = 1;
    object->GetBiosReservedMem(nullptr, nullptr);
    object->GetBiosReservedMem(&address, nullptr);
    EXPECT_EQ(address, 0U);
    object->GetBiosReservedMem(nullptr, &size);
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
    EXPECT_EQ(Text(spy), ServerText());

    SearchResult nodes;
    SMBIOSProtocolImpl& base = spy;
    SMBIOSProtocolImpl(base).SMBiosSearch("/SMBIOS", nodes);
    std::set<std::string> paths;
    for (const auto& entry : nodes)
        paths.insert(entry.first);
    EXPECT_EQ(std::set<std::string>(spy.Asked.begin(), spy.Asked.end()), paths);
    EXPECT_EQ(spy.Asked.size(), paths.size());

    const std::string status = "/SMBIOS/Type4[1]/Status";
    spy.Asked.clear();
    spy.SMBiosSearch(status, nodes);
    EXPECT_EQ(spy.Asked,
              (std::vector<std::string>{status, status + "/CPUStatus", status + "/CPU Socket Populated"}));
}

} // namespace
