#include "Tree.h"

#include "Failure.h"
#include "Text.h"

#include <algorithm>
#include <new>
#include <utility>

namespace SmbiosTree {

namespace {

using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::SMBIOSProtocolImpl;

Failure UnsupportedVersion(Version version)
{
    const bool isOld = version.Major < 2 || (version.Major == 2 && version.Minor < 3);
    return {Kind::UnsupportedVersion, "SMBIOS version " + version.Text() +
                                          " is not supported (2.3 to 2.8 and 3.0 are); use --read-as " +
                                          (isOld ? "2.3" : "3.0")};
}

Failure UnsupportedMachine()
{
    return {Kind::UnsupportedVersion, "its SMBIOS version is not supported (2.3 to 2.8 and 3.0 are); use "
                                      "--newest, or --read-as 3.0"};
}

Tree Decoded(const TableImage& table, Reading reading)
{
    return {std::make_shared<SMBIOSProtocolImpl>(table, reading, RootPath),
            Version{table.Major(), table.Minor()}, reading, table.IsWhole()};
}

Tree OpenTable(TableImage table, const Manner& manner)
{
    if (manner.Catalogue == Catalogue::Newest)
        return Decoded(table, Reading::Newest);
    if (manner.ReadAs)
        table = table.As(manner.ReadAs->Major, manner.ReadAs->Minor);
    try {
        return Decoded(table, Reading::ByVersion);
    } catch (const ResultStatus& status) {
        if (status.Code() == RESULT_TOO_LARGE)
            throw Failure(Kind::TooLarge, status.Message() + ", or read it with --newest");
        if (status.Code() != RESULT_UNSUPPORTED_VERSION)
            throw InputFailure(status);
    }
    if (manner.Catalogue == Catalogue::ByVersion)
        throw UnsupportedVersion({table.Major(), table.Minor()});
    return Decoded(table, Reading::Newest);
}

Tree OpenMachine(const Manner& manner)
{
    if (manner.Catalogue == Catalogue::Newest || manner.ReadAs)
        return OpenTable(Read(std::nullopt), manner);
    try {
        // The object lives until the process ends; nobody here releases it.
        return {{&SMBIOSProtocolImpl::CreateInstance(), [](const SMBIOSProtocolImpl*) {}},
                std::nullopt,
                Reading::ByVersion};
    } catch (const ResultStatus& status) {
        if (status.Code() != RESULT_UNSUPPORTED_VERSION)
            throw MachineFailure(status);
    }
    if (manner.Catalogue == Catalogue::ByVersion)
        throw UnsupportedMachine();
    return Decoded(Read(std::nullopt), Reading::Newest);
}

// What `open` gives, with whatever it throws as a Failure.
template <typename Function>
Tree OpenBy(Function open)
{
    try {
        return open();
    } catch (const ResultStatus& status) {
        throw InputFailure(status);
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        throw Failure(Kind::TreeTooLarge,
                      "its tree would be too large, which no real machine's is; the table is "
                      "damaged or made to do harm");
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

// The longest path that has a node and of which `path` is a continuation.
std::string NearestPath(const Tree& tree, std::string path)
{
    while (!path.empty()) {
        path.resize(path.find_last_of("/[") == std::string::npos ? 0 : path.find_last_of("/["));
        if (tree.Find(path))
            return path;
    }
    return RootPath;
}

bool IsSameLetter(char left, char right)
{
    const auto lower = [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? letter + ('a' - 'A') : letter;
    };
    return lower(left) == lower(right);
}

// Whether `path` leads to or through `front`, in any case.
bool BeginsWith(std::string_view path, std::string_view front)
{
    return path.size() >= front.size() &&
           std::equal(front.begin(), front.end(), path.begin(), IsSameLetter) &&
           (path.size() == front.size() || path[front.size()] == '/' || path[front.size()] == '[');
}

// The node at or below `node` whose path is `path` in another case.
NodeView FindInAnyCase(NodeView node, std::string_view path)
{
    if (node.Path().size() == path.size() || node.IsLeaf())
        return node.Path().size() == path.size() ? node : NodeView();
    for (const NodeView child : node.DistinctChildren()) {
        const NodeView found = BeginsWith(path, child.Path()) ? FindInAnyCase(child, path) : NodeView();
        if (found)
            return found;
    }
    return {};
}

// `path` with the slashes that it should have.
std::string Straightened(std::string path)
{
    while (!path.empty() && path.back() == '/')
        path.pop_back();
    if (path.empty() || path.front() != '/')
        path.insert(0, 1, '/');
    if (!BeginsWith(path, RootPath))
        path.insert(0, RootPath);
    return path;
}

// The node at `path`. Throws Failure where there is none.
NodeView NodeAt(const Tree& tree, const std::string& path)
{
    const NodeView node = tree.Find(path);
    if (node)
        return node;
    const std::string straight = Straightened(path);
    const NodeView meant = FindInAnyCase(tree.Find(RootPath), straight);
    throw Failure(Kind::UnknownPath,
                  "nothing is at the path \"" + Visible(path) + "\"; " +
                      (meant ? "did you mean " + Visible(meant.Path()) + "?"
                             : "see what is there with --path " + NearestPath(tree, straight)));
}

std::string PathOfType(unsigned int type)
{
    return RootPath + ("/Type" + std::to_string(type));
}

Failure NoSuchType(const Tree& tree, unsigned int type)
{
    const std::string name = "type " + std::to_string(type);
    if (tree.Reading == Reading::Newest)
        return {Kind::UnknownPath,
                "the table has no structure of " + name + "; see what it has with --path /SMBIOS"};
    return {Kind::UnknownPath, name + " is not read by version; use --newest, which reads every type"};
}

} // namespace

Tree Open(const Input& input, const Manner& manner)
{
    return OpenBy([&] { return input ? OpenTable(Read(input), manner) : OpenMachine(manner); });
}

Tree Open(const TableImage& table, const Manner& manner)
{
    return OpenBy([&] { return OpenTable(table, manner); });
}

Selection Select(const Tree& tree, const Choice& choice)
{
    if (choice.Types.empty())
        return {{NodeAt(tree, choice.Path)}, false};
    Selection selection{{}, true};
    for (const unsigned int type : choice.Types) {
        const NodeView node = tree.Find(PathOfType(type));
        if (!node)
            throw NoSuchType(tree, type);
        if (std::find(selection.Tops.begin(), selection.Tops.end(), node) == selection.Tops.end())
            selection.Tops.push_back(node);
    }
    return selection;
}

std::vector<NodePair> SelectBoth(const Tree& before, const Tree& after, const Choice& choice)
{
    if (choice.Types.empty()) {
        const NodeView node = before.Find(choice.Path);
        return {{node, node ? after.Find(choice.Path) : NodeAt(after, choice.Path)}};
    }
    std::vector<NodePair> pairs;
    for (const unsigned int type : choice.Types) {
        const NodePair pair{before.Find(PathOfType(type)), after.Find(PathOfType(type))};
        if (!pair.Before && !pair.After)
            throw NoSuchType(after, type);
        pairs.push_back(pair);
    }
    return pairs;
}

std::string VersionText(const Tree& tree)
{
    std::optional<Version> version = tree.Version;
    if (!version) {
        try {
            const TableImage table = Read(std::nullopt);
            version = Version{table.Major(), table.Minor()};
        } catch (const Failure&) {
            return "";
        }
    }
    return "version " + version->Text() +
           (tree.Reading == Reading::Newest ? ", with the newest catalogue" : "");
}

std::string_view NameOf(NodeView node)
{
    return IsInstance(node) ? node.Path().substr(node.Path().rfind('/') + 1) : node.Name();
}

} // namespace SmbiosTree
