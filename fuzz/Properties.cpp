#include "Properties.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace {

/// Beyond it, subtrees and copies are not compared: that would cost more than it finds.
constexpr std::size_t LargestThoroughTree = 1'000;

bool AreEqual(const _XNode& left, const _XNode& right)
{
    return left.NodeType == right.NodeType && left.Items == right.Items;
}

bool IsBlock(const std::string& path)
{
    return path.find("/SPD_RAW") != std::string::npos;
}

Tree WithoutBlocks(Tree tree)
{
    for (auto node = tree.begin(); node != tree.end();) {
        std::vector<std::string>& items = node->second.Items;
        if (node->second.NodeType == NODE_INNER)
            items.erase(std::remove_if(items.begin(), items.end(), IsBlock), items.end());
        node = IsBlock(node->first) ? tree.erase(node) : std::next(node);
    }
    return tree;
}

void CheckNodes(const Tree& tree)
{
    Require(tree.count("/SMBIOS") == 1, "a tree has a root");
    for (const auto& [path, node] : tree) {
        Require(node.Attributes.empty() && node.Flag == 0, "attributes and flag are not used");
        if (node.NodeType == NODE_LEAF) {
            Require(!node.Items.empty(), "a leaf has a value");
            continue;
        }
        for (const std::string& child : node.Items) {
            Require(child.size() > path.size() && child.compare(0, path.size(), path) == 0,
                    "a child's path begins with its parent's");
            Require(tree.count(child) == 1, "a listed path has a node");
        }
    }
}

// A search gives the nodes of the whole tree whose paths continue the path asked for.
void CheckSubtrees(SMBIOSProtocolImpl& object, const Tree& tree)
{
    for (auto top = tree.begin(); top != tree.end(); ++top) {
        const std::string& path = top->first;
        Tree found;
        object.SMBiosSearch(path, found);
        auto each = found.begin();
        for (auto node = top; node != tree.end() && node->first.compare(0, path.size(), path) == 0; ++node) {
            const char next = node->first[path.size()]; // of a string, the NUL behind its end too
            if (next != '\0' && next != '/' && next != '[')
                continue;
            Require(each != found.end() && each->first == node->first && AreEqual(each->second, node->second),
                    "a search gives the part of the whole that it names");
            ++each;
        }
        Require(each == found.end(), "a search gives no more than it names");
    }
}

// Copies share what the last of them releases; `order` varies who that is.
void CheckCopies(SMBIOSProtocolImpl& object, const Tree& tree, unsigned int order)
{
    std::vector<ObjectOwner> copies;
    copies.reserve(3);
    SMBIOSProtocolImpl* source = &object;
    for (int i = 0; i < 3; ++i) { // each of the one before it
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(*source));
        source = copies.back().get();
    }
    *copies[order % 3] = *copies[(order + 1) % 3];
    // cppcheck-suppress selfAssignment ; it is one of the things that must do no harm
    *copies[0] = *copies[0];
    std::swap(copies[0], copies[order % 3]);
    while (!copies.empty()) {
        Require(AreEqual(Everything(*copies.back()), tree), "a copy equals its source");
        copies.pop_back();
    }
    Require(AreEqual(Everything(object), tree), "a source outlives its copies");
}

} // namespace

void Require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

ObjectOwner TryMake(const std::function<ObjectOwner()>& make)
{
    try {
        return make();
    } catch (const ResultStatus& failure) {
        Require(!failure.Message().empty() && failure.Message() == failure.what(), "a failure has a text");
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
    }
    return nullptr;
}

ObjectOwner TryMakeLive(const FakeSystem::Machine& machine)
{
    FakeSystem::TheMachine = machine;
    ObjectOwner object = TryMake(FakeSystem::NewLiveObject);
    Require(FakeSystem::TheMachine.Locks == 0, "no lock stays behind");
    return object;
}

bool CheckRoute(const FakeSystem::Machine& machine, const Tree& tree)
{
    const ObjectOwner object = TryMakeLive(machine);
    if (object != nullptr)
        Require(AreEqual(WithoutBlocks(Everything(*object)), WithoutBlocks(tree)),
                "a table reads the same on all routes");
    return object != nullptr;
}

Tree Everything(SMBIOSProtocolImpl& object)
{
    Tree tree;
    object.SMBiosSearch("/SMBIOS", tree);
    return tree;
}

bool AreEqual(const Tree& left, const Tree& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& one, const auto& other) {
                          return one.first == other.first && AreEqual(one.second, other.second);
                      });
}

unsigned int ShareOf(const unsigned char* data, std::size_t size)
{
    return std::accumulate(data, data + size, static_cast<unsigned int>(size),
                           [](unsigned int sum, unsigned int byte) { return sum * 31 + byte; }) >>
           4;
}

void CheckObject(SMBIOSProtocolImpl& object, const Tree& tree, unsigned int share)
{
    CheckNodes(tree);
    if (tree.size() > LargestThoroughTree)
        return;
    if (share / 8 % 2 == 0)
        CheckSubtrees(object, tree);
    else
        CheckCopies(object, tree, share);
}
