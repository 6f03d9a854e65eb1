#include "Tree.h"

#include "Failure.h"
#include "Image.h"
#include "Text.h"

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <new>
#include <utility>

namespace SmbiosTree {

namespace {

using Protocol::SMBIOS::ISMBIOSProtocol;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Found = std::map<std::string, _XNode>;

// Where Linux publishes the running machine's table, for those whose version needs --read-as.
constexpr const char* PublishedFolder = "/sys/firmware/dmi/tables";

constexpr const char* KnownVersions = " is not supported (2.3 to 2.8 and 3.0 are); ";

Failure UnsupportedVersion(Version version)
{
    const bool isOld = version.Major < 2 || (version.Major == 2 && version.Minor < 3);
    return {Kind::UnsupportedVersion,
            "SMBIOS version " + version.Text() + KnownVersions + "use --read-as " + (isOld ? "2.3" : "3.0")};
}

// The library's words for the failures of an image speak of the running machine too.
Failure ImageFailure(const ResultStatus& status, Version version)
{
    switch (status.Code()) {
    case RESULT_NO_TABLE:
        return {Kind::NoEntryPoint,
                "no complete 32-bit entry point (\"_SM_\") in it; give a table with one behind "
                "it, a dump that begins with one, or the folder that holds "
                "smbios_entry_point and DMI"};
    case RESULT_BAD_CHECKSUM:
        return {Kind::Damaged, "the checksum of the entry point is wrong; take the table again"};
    case RESULT_UNSUPPORTED_VERSION:
        return UnsupportedVersion(version);
    default:
        return {Kind::MachineUnreadable, status.Message()};
    }
}

Failure MachineFailure(const ResultStatus& status)
{
    if (status.Code() == RESULT_UNSUPPORTED_VERSION)
        return {Kind::UnsupportedVersion, std::string("its SMBIOS version") + KnownVersions +
                                              "on Linux, use " + "--read-as 3.0 " + PublishedFolder};
    return {Kind::MachineUnreadable, status.Message()};
}

std::shared_ptr<ISMBIOSProtocol> OpenMachine()
{
    try {
        // The object lives until the process ends; nobody here releases it.
        return {&SMBIOSProtocolImpl::CreateInstance(), [](ISMBIOSProtocol*) {}};
    } catch (const ResultStatus& status) {
        throw MachineFailure(status);
    }
}

std::shared_ptr<ISMBIOSProtocol> OpenImage(const std::string& name, std::optional<Version> readAs)
{
    Image image = MakeImage(Read(name), readAs);
    try {
        return std::make_shared<SMBIOSProtocolImpl>(image.Data.data(),
                                                    static_cast<unsigned short>(image.Data.size()), RootPath);
    } catch (const ResultStatus& status) {
        throw ImageFailure(status, image.Version);
    }
}

std::string_view LastPart(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

// The longest path that has a node and of which `path` is a continuation.
std::string NearestPath(ISMBIOSProtocol& protocol, std::string path)
{
    while (!path.empty()) {
        path.resize(path.find_last_of("/[") == std::string::npos ? 0 : path.find_last_of("/["));
        Found found;
        protocol.SMBiosSearch(path, found);
        if (!found.empty())
            return path;
    }
    return RootPath;
}

} // namespace

Tree::Tree(Found found, const std::string& top, std::size_t nameStart) : Nodes(std::move(found))
{
    const auto entry = Nodes.find(top);
    TopNode.Path = entry->first;
    TopNode.Key = TopNode.Path;
    TopNode.Name = TopNode.Path.substr(nameStart);
    entry->second.Flag = 1;
    Fill(TopNode, entry->second);
}

void Tree::Fill(Node& node, _XNode& source)
{
    node.IsLeaf = source.NodeType == NODE_LEAF;
    if (node.IsLeaf) {
        node.Value = source.Items.empty() ? std::string_view() : source.Items.front();
        return;
    }
    node.Children.reserve(source.Items.size());
    for (const std::string& path : source.Items) {
        const auto entry = Nodes.find(path);
        // A type without an index lists its fields once for each of its structures. The flag, which the
        // library leaves at 0, marks what has its place.
        if (entry == Nodes.end() || entry->second.Flag != 0)
            continue;
        entry->second.Flag = 1;
        Node& child = node.Children.emplace_back();
        child.Path = entry->first;
        child.Key = child.Path.substr(node.Path.size());
        child.Name = child.Key.front() == '/' ? child.Key.substr(1) : LastPart(child.Path);
        Fill(child, entry->second);
    }
}

std::shared_ptr<ISMBIOSProtocol> Open(const std::optional<std::string>& input, std::optional<Version> readAs)
{
    try {
        return input ? OpenImage(*input, readAs) : OpenMachine();
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        throw Failure(Kind::TreeTooLarge,
                      "its tree would be too large, which no real machine's is; the table is "
                      "damaged or made to do harm");
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

std::optional<Tree> FindSubtree(ISMBIOSProtocol& protocol, const std::string& path)
{
    Found found;
    protocol.SMBiosSearch(path, found);
    if (found.empty())
        return std::nullopt;
    // The names of some leaves hold a slash themselves: their parents tell where they begin.
    const bool isLeaf = found.at(path).NodeType == NODE_LEAF;
    const std::size_t nameStart = isLeaf ? NearestPath(protocol, path).size() + 1 : path.rfind('/') + 1;
    return std::make_optional<Tree>(std::move(found), path, nameStart);
}

Tree Subtree(ISMBIOSProtocol& protocol, const std::string& path)
{
    std::optional<Tree> tree = FindSubtree(protocol, path);
    if (!tree)
        throw Failure(Kind::UnknownPath, "nothing is at the path \"" + Visible(path) + "\"" +
                                             "; see what is there with --path " +
                                             NearestPath(protocol, path));
    return *std::move(tree);
}

} // namespace SmbiosTree
