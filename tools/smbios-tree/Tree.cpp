#include "Tree.h"

#include "Failure.h"
#include "Image.h"
#include "Text.h"

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <map>
#include <string_view>
#include <unordered_set>

namespace SmbiosTree {

namespace {

using Protocol::SMBIOS::ISMBIOSProtocol;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Nodes = std::map<std::string, _XNode>;

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

void Fill(Node& node, const Nodes& nodes)
{
    const _XNode& source = nodes.at(node.Path);
    node.IsLeaf = source.NodeType == NODE_LEAF;
    if (node.IsLeaf) {
        node.Value = source.Items.empty() ? std::string() : source.Items.front();
        return;
    }
    // A type without an index lists its fields once for each of its structures.
    std::unordered_set<std::string_view> seen;
    node.Children.reserve(source.Items.size());
    for (const std::string& path : source.Items) {
        if (nodes.count(path) == 0 || !seen.insert(path).second)
            continue;
        Node& child = node.Children.emplace_back();
        child.Path = path;
        child.Key = path.substr(node.Path.size());
        child.Name = child.Key.front() == '/' ? child.Key.substr(1) : LastPart(path);
        Fill(child, nodes);
    }
}

// The longest path that has a node and of which `path` is a continuation.
std::string NearestPath(ISMBIOSProtocol& protocol, std::string path)
{
    while (!path.empty()) {
        path.resize(path.find_last_of("/[") == std::string::npos ? 0 : path.find_last_of("/["));
        Nodes nodes;
        protocol.SMBiosSearch(path, nodes);
        if (!nodes.empty())
            return path;
    }
    return RootPath;
}

} // namespace

std::shared_ptr<ISMBIOSProtocol> Open(const std::optional<std::string>& input, std::optional<Version> readAs)
{
    try {
        return input ? OpenImage(*input, readAs) : OpenMachine();
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        throw Failure(Kind::TreeTooLarge,
                      "its tree would be too large, which no real machine's is; the table is "
                      "damaged or made to do harm");
    } catch (const std::bad_alloc&) {
        throw Failure(Kind::OutOfMemory, "there is not enough memory for its tree; free some and try again");
    }
}

std::optional<Node> FindSubtree(ISMBIOSProtocol& protocol, const std::string& path)
{
    Nodes nodes;
    protocol.SMBiosSearch(path, nodes);
    if (nodes.empty())
        return std::nullopt;
    Node top;
    top.Path = path;
    top.Name = LastPart(path);
    Fill(top, nodes);
    return top;
}

Node Subtree(ISMBIOSProtocol& protocol, const std::string& path)
{
    std::optional<Node> top = FindSubtree(protocol, path);
    if (!top)
        throw Failure(Kind::UnknownPath, "nothing is at the path " + Visible(path) +
                                             "; see what is there with --path " +
                                             NearestPath(protocol, path));
    return *std::move(top);
}

} // namespace SmbiosTree
