// The life of an object: it is constructed in phases, answers, is copied, and goes.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "tree/NodeStore.h"

#include <mutex>
#include <utility>

namespace Protocol::SMBIOS {

SMBIOSProtocolImpl& SMBIOSProtocolImpl::CreateInstance()
{
    static SMBIOSProtocolImpl smb;
    return smb;
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl() : RootPath("/SMBIOS")
{
    InitSMBiosTable();
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl(unsigned char* image, unsigned short size, std::string rootPath)
    : RootPath(std::move(rootPath)), ResultNodes(std::make_shared<NodeStore>())
{
    GetSMBiosEntryPtr(image, size);
    BuildTree();
    Finish();
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl(const TableImage& table, Reading reading, std::string rootPath)
    : RootPath(std::move(rootPath)), ResultNodes(std::make_shared<NodeStore>()), HowRead(reading)
{
    std::vector<unsigned char> bytes = reading == Reading::Newest ? table.Table() : table.TableByVersion();
    SMBiosVersion = EntryPoint::VersionText(table.MajorVersion, table.MinorVersion);
    // cppcheck-suppress danglingLifetime // Finish forgets it
    TableBase = bytes.data();
    TableLength = static_cast<unsigned int>(bytes.size());
    BuildTree();
    decltype(bytes)().swap(bytes); // ahead of the ordering of children, which takes room
    Finish();
}

void SMBIOSProtocolImpl::BuildTree()
{
    DefineSMBiosTable();
    DefineValidSubTypes();
    ParseSMBiosTable();
    FillSMBIOSDataTables();
    FillSubTypeDataTables();
    FillMemoryArray();
    FillProcessorInfo();
}

// What refers to the table goes with it: from here on there is the tree alone.
void SMBIOSProtocolImpl::Finish()
{
    decltype(StructuresByHandle)().swap(StructuresByHandle);
    decltype(SubTypeLinks)().swap(SubTypeLinks);
    decltype(ValidSubTypes)().swap(ValidSubTypes);
    decltype(TypeTables)().swap(TypeTables);
    TableBase = nullptr;
    TableLength = 0;
    ResultNodes->OrderChildren();
}

void SMBIOSProtocolImpl::InitSMBiosTable()
{
    EntryMapping.reset();
    TableMapping.reset();
    SMBiosVersion.clear();
    ReservedMemAddress = 0;
    ReservedMemSize = 0;
    StructuresByHandle.clear();
    SubTypeLinks.clear();
    ValidSubTypes.clear();
    RawTableBuffer = nullptr;
    TypeTables.clear();
    ResultNodes = std::make_shared<NodeStore>();

    GetSMBiosEntryPtr();
    BuildTree();
    DumpMemorySPD();
    InitBiosReservedMem();
    Finish();
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl(const SMBIOSProtocolImpl& source)
    : ISMBIOSProtocol(source), RootPath(source.RootPath), SMBiosVersion(source.SMBiosVersion),
      ReservedMemAddress(source.ReservedMemAddress), ReservedMemSize(source.ReservedMemSize),
      ResultNodes(source.ResultNodes), RawTableBuffer(source.RawTableBuffer), HowRead(source.HowRead)
{
}

// The mappings move last: a copy that fails for lack of memory leaves its source as it was. Several threads
// may copy one object, and one of them gets the mappings.
SMBIOSProtocolImpl::SMBIOSProtocolImpl(SMBIOSProtocolImpl& source) : SMBIOSProtocolImpl(std::as_const(source))
{
    static std::mutex mappings;
    const std::lock_guard<std::mutex> guard(mappings);
    EntryMapping = source.EntryMapping;
    TableMapping = source.TableMapping;
}

SMBIOSProtocolImpl& SMBIOSProtocolImpl::operator=(const SMBIOSProtocolImpl& source)
{
    if (this != &source) {
        SMBIOSProtocolImpl copy(source);
        SwapWith(copy);
    }
    return *this;
}

SMBIOSProtocolImpl& SMBIOSProtocolImpl::operator=(SMBIOSProtocolImpl& source)
{
    if (this != &source) {
        SMBIOSProtocolImpl copy(source);
        SwapWith(copy);
    }
    return *this;
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl(SMBIOSProtocolImpl&& source) noexcept : ISMBIOSProtocol(source)
{
    SwapWith(source);
}

SMBIOSProtocolImpl& SMBIOSProtocolImpl::operator=(SMBIOSProtocolImpl&& source) noexcept
{
    SMBIOSProtocolImpl moved(std::move(source));
    SwapWith(moved);
    return *this;
}

void SMBIOSProtocolImpl::SwapWith(SMBIOSProtocolImpl& other) noexcept
{
    std::swap(EntryMapping, other.EntryMapping);
    std::swap(TableMapping, other.TableMapping);
    std::swap(RootPath, other.RootPath);
    std::swap(TableBase, other.TableBase);
    std::swap(TableLength, other.TableLength);
    std::swap(SMBiosVersion, other.SMBiosVersion);
    std::swap(ReservedMemAddress, other.ReservedMemAddress);
    std::swap(ReservedMemSize, other.ReservedMemSize);
    std::swap(ResultNodes, other.ResultNodes);
    std::swap(RawTableBuffer, other.RawTableBuffer);
    std::swap(HowRead, other.HowRead);
}

SMBIOSProtocolImpl::~SMBIOSProtocolImpl()
{
    DeleteResultMap(RootPath);
    RawTableBuffer = nullptr; // went with the store, or stays with the copies that share it
}

} // namespace Protocol::SMBIOS
