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

Failure UnsupportedVersion(const std::optional<Version>& version)
{
    const bool isOld = version && (version->Major < 2 || (version->Major == 2 && version->Minor < 3));
    const std::string subject = version ? "SMBIOS version " + version->Text() : "a table without a version";
    const char* const others = version ? " (2.3 to 2.8 and 3.0 are)" : "";
    return {Kind::UnsupportedVersion, subject + " is not read by version" + others +
                                          "; leave out --by-version, or use --read-as " +
                                          (isOld ? "2.3" : "3.0")};
}

std::shared_ptr<const SMBIOSProtocolImpl> Decoded(const TableImage& table, Reading reading)
{
    return std::make_shared<SMBIOSProtocolImpl>(table, reading, RootPath);
}

void DecodeByVersion(Tree& tree)
{
    const std::optional<Version>& version = tree.Manner.ReadAs;
    try {
        tree.Nodes = Decoded(version ? tree.Table->As(version->Major, version->Minor) : *tree.Table,
                             Reading::ByVersion);
    } catch (const ResultStatus& status) {
        if (status.Code() == RESULT_TOO_LARGE)
            throw Failure(Kind::TooLarge, status.Message() + ", or read it without --by-version");
        if (status.Code() == RESULT_UNSUPPORTED_VERSION)
            throw UnsupportedVersion(tree.OwnVersion());
        throw InputFailure(status);
    }
}

// By version the running machine has SPD data, which no table holds.
void DecodeMachine(Tree& tree)
{
    try {
        tree.Table = Read(std::nullopt);
    } catch (const Failure&) { // the library has a route of its own
    }
    try {
        // The object lives until the process ends; nobody here releases it.
        tree.Nodes = {&SMBIOSProtocolImpl::CreateInstance(), [](const SMBIOSProtocolImpl*) {}};
    } catch (const ResultStatus& status) {
        if (status.Code() == RESULT_UNSUPPORTED_VERSION && tree.Table)
            throw UnsupportedVersion(tree.OwnVersion());
        throw MachineFailure(status);
    }
}

void Decode(const Input& input, Tree& tree)
{
    if (!input && tree.Manner.ByVersion && !tree.Manner.ReadAs)
        return DecodeMachine(tree);
    tree.Table = Read(input);
    if (tree.Manner.ByVersion)
        DecodeByVersion(tree);
    else
        tree.Nodes = Decoded(*tree.Table, Reading::Newest);
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
    return {Kind::UnknownPath,
            tree.Manner.ByVersion
                ? name + " is not read by version; leave out --by-version and --read-as, to read every type"
                : "the table has no structure of " + name + "; see what it has with --path /SMBIOS"};
}

} // namespace

std::optional<Version> Tree::OwnVersion() const
{
    const bool hasVersion = Table && (Table->Major() != 0 || Table->Minor() != 0);
    return hasVersion ? std::optional<Version>({Table->Major(), Table->Minor()}) : std::nullopt;
}

void Open(const Input& input, const Manner& manner, Tree& tree)
{
    tree.Manner = manner;
    try {
        Decode(input, tree);
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
        const bool isKnown = std::any_of(pairs.begin(), pairs.end(), [&](const NodePair& each) {
            return each.Before == pair.Before && each.After == pair.After;
        });
        if (!isKnown)
            pairs.push_back(pair);
    }
    return pairs;
}

std::string VersionText(const Tree& tree)
{
    if (!tree.Table)
        return "";
    const std::optional<Version> version = tree.OwnVersion();
    const std::string text = version ? "version " + version->Text() : "no version";
    if (tree.Manner.ReadAs)
        return text + ", read as " + tree.Manner.ReadAs->Text();
    return tree.Manner.ByVersion ? text + ", by version" : text;
}

std::string DamageOf(const TableImage& table)
{
    using Protocol::SMBIOS::TableEnd;
    const std::string place =
        "the table is damaged at its offset " + std::to_string(table.Extent().Size) + ", where a structure ";
    const std::string effect = "; structures behind it may be missing";
    switch (table.Extent().End) {
    case TableEnd::ShortStructure:
        return place + "has less than 4 bytes" + effect;
    case TableEnd::CutStructure:
        return place + "reaches beyond the end of the table" + effect;
    case TableEnd::CutStrings:
        return place + "has strings without an end" + effect;
    case TableEnd::EndStructure:
    case TableEnd::LastByte:
        break;
    }
    return table.IsWhole() ? "" : "the table has no end structure, and may be cut off";
}

std::string_view NameOf(NodeView node)
{
    return IsInstance(node) ? node.Path().substr(node.Path().rfind('/') + 1) : node.Name();
}

} // namespace SmbiosTree
