// The life of an object: it is constructed in phases, answers, is copied, and goes.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <utility>

namespace Protocol::SMBIOS {

SMBIOSProtocolImpl& SMBIOSProtocolImpl::CreateInstance()
{
    static SMBIOSProtocolImpl smb;
    return smb;
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl() : RootPath("/SMBIOS"), Store(std::make_shared<NodeStore>())
{
    ReadMachine();
}

SMBIOSProtocolImpl::SMBIOSProtocolImpl(unsigned char* image, unsigned short size, std::string rootPath)
    : RootPath(std::move(rootPath)), Store(std::make_shared<NodeStore>())
{
    GetSMBiosEntryPtr(image, size);
    BuildTree();
    Store->OrderChildren();
}

void SMBIOSProtocolImpl::ReadMachine()
{
    GetSMBiosEntryPtr();
    BuildTree();
    DumpMemorySPD();
    InitBiosReservedMem();
    Store->OrderChildren();
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

void SMBIOSProtocolImpl::InitSMBiosTable()
{
    EntryMapping.reset();
    TableMapping.reset();
    SMBiosVersion.clear();
    StructuresByHandle.clear();
    ResultNodes.clear();
    SubTypeLinks.clear();
    ValidSubTypes.clear();
    RawTableBuffer = nullptr;
    TypeTables.clear();
    Store = std::make_shared<NodeStore>();

    ReadMachine();
}

// The mappings move last: a copy that fails for lack of memory leaves its source as it was.
SMBIOSProtocolImpl::SMBIOSProtocolImpl(SMBIOSProtocolImpl& source)
    : ISMBIOSProtocol(source), RootPath(source.RootPath), TableBase(source.TableBase),
      TableLength(source.TableLength), SMBiosVersion(source.SMBiosVersion),
      ReservedMemAddress(source.ReservedMemAddress), ReservedMemSize(source.ReservedMemSize),
      StructuresByHandle(source.StructuresByHandle), ResultNodes(source.ResultNodes),
      SubTypeLinks(source.SubTypeLinks), ValidSubTypes(source.ValidSubTypes),
      RawTableBuffer(source.RawTableBuffer), TypeTables(source.TypeTables), Store(source.Store)
{
    // cppcheck-suppress useInitializationList
    EntryMapping = source.EntryMapping;
    // cppcheck-suppress useInitializationList
    TableMapping = source.TableMapping;
}

SMBIOSProtocolImpl& SMBIOSProtocolImpl::operator=(SMBIOSProtocolImpl& source)
{
    if (this != &source) {
        SMBIOSProtocolImpl copy(source);
        SwapWith(copy);
    }
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
    std::swap(StructuresByHandle, other.StructuresByHandle);
    std::swap(ResultNodes, other.ResultNodes);
    std::swap(SubTypeLinks, other.SubTypeLinks);
    std::swap(ValidSubTypes, other.ValidSubTypes);
    std::swap(RawTableBuffer, other.RawTableBuffer);
    std::swap(TypeTables, other.TypeTables);
    std::swap(Store, other.Store);
}

SMBIOSProtocolImpl::~SMBIOSProtocolImpl()
{
    DeleteResultMap(RootPath);
    RawTableBuffer = nullptr; // went with the store, or stays with the copies that share it
}

} // namespace Protocol::SMBIOS
