// The library: a machine's SMBIOS data as a tree of named text values, queried by path.
//
// Everything is done while an object is constructed; afterwards it only answers. The private operations stand
// in the order in which construction runs them, and each group lives in the folder of src/ that bears its
// name.

#pragma once

#include "SMBIOSProtocol/Export.h"
#include "SMBIOSProtocol/ISMBIOSProtocol.h"
#include "SMBIOSProtocol/Logger.h"
#include "SMBIOSProtocol/ResultStatus.h"
#include "SMBIOSProtocol/SMBTable.h"
#include "SMBIOSProtocol/SMBiosStructure.h"
#include "SMBIOSProtocol/TreeTooLarge.h"
#include "SMBIOSProtocol/UnmapDeleter.h"
#include "SMBIOSProtocol/XNode.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Protocol::SMBIOS {

class NodeStore;
struct TreeNode;

/// A machine's decoded SMBIOS data: that of the running machine, or of a table image.
class SMBIOSPROTOCOL_API SMBIOSProtocolImpl : public ISMBIOSProtocol {
public:
    /// The object of the running machine, rooted at "/SMBIOS". The first call reads the firmware's tables and
    /// decodes them; every later call returns the same object. Throws ResultStatus, TreeTooLarge,
    /// std::bad_alloc; after a failure the next call starts over. The object lives until the process ends.
    static SMBIOSProtocolImpl& CreateInstance();

    /// Decodes a table image: `size` bytes from `image`, the structure table at their start and a 32-bit
    /// entry point anywhere in them. Touches no firmware and no physical memory. The image stays the caller's
    /// and need live only as long as this constructor runs. `rootPath` is the path of the tree's root, in
    /// front of all others. Throws ResultStatus (1013 no usable entry point, 1024 bad checksum, 1111 version
    /// without a catalogue), TreeTooLarge, std::bad_alloc.
    SMBIOSProtocolImpl(unsigned char* image, unsigned short size, std::string rootPath);

    /// The copy answers like its source. Mappings move to the copy; the nodes are shared, and the last object
    /// that holds them releases them.
    SMBIOSProtocolImpl(SMBIOSProtocolImpl& source);
    /// As copying does; what this object held goes. An assignment that throws changes neither object.
    SMBIOSProtocolImpl& operator=(SMBIOSProtocolImpl& source);

    ~SMBIOSProtocolImpl() override;

    /// See ISMBIOSProtocol. Any number of threads may search one object, each with a map of its own. A node's
    /// children are asked for through the virtual operation.
    void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) override;

    /// Stores the physical address and the size in bytes of the memory that the firmware keeps for itself; 0
    /// where the table does not tell, and always 0 on an object built from an image. A null pointer is
    /// skipped.
    void GetBiosReservedMem(unsigned int* address, unsigned int* size);

private:
    // instance
    SMBIOSProtocolImpl();
    void InitSMBiosTable(); ///< reads the machine anew into this object
    void ReadMachine();     ///< all phases, on the running machine
    void BuildTree();       ///< the phases from the catalogue to the inventories
    void SwapWith(SMBIOSProtocolImpl& other) noexcept;

    // acquisition: sets TableBase, TableLength, SMBiosVersion
    void GetSMBiosEntryPtr();
    void ReadRawFirmwareBlock();
    int GetRawSmbiosData(unsigned char* buffer, unsigned long& size);
    void GetSMBiosEntryPtr(unsigned char* image, unsigned long long size);

    // catalogue: fills TypeTables and ValidSubTypes, plants the root and the nodes of the types
    void DefineSMBiosTable();
    void FillStaticInfoSMBIOSSpec_23();
    void FillStaticInfoSMBIOSSpec_24();
    void FillStaticInfoSMBIOSSpec_25();
    void FillStaticInfoSMBIOSSpec_26();
    void FillStaticInfoSMBIOSSpec_27();
    void DefineValidSubTypes();
    std::vector<unsigned char> CataloguedTypes() const; ///< keys of TypeTables, ascending

    // structures: walks the table into Instances and StructuresByHandle
    void ParseSMBiosTable();

    // tree: decodes every structure under its type, then those behind links
    void FillSMBIOSDataTables();
    void FillSubTypeDataTables();

    // decoding: one structure, one field, one value
    const SMBTable& SMBiosDataTable(std::string_view path, int type, int handle);
    void DecodeFields(const SMBTable& table, const SMBiosStructure& structure, int type, TreeNode& node);
    bool IsHandleField(int type, std::string_view name) const;
    static void ExtractField(const char* source, char* destination, unsigned char width,
                             FieldInterpretation interpretation);
    static std::string ConvertIntToString(unsigned long long value);
    void FillFieldInterpretation(std::string_view path, std::string_view name, std::string_view value,
                                 const ValueTableMap& tables);
    void InterpretEnumeration(std::string_view path, std::string_view value, std::string_view text);
    void InterpretBits(unsigned long long value, const ValueTable& table, std::string_view path);
    std::string CalculateProcessorStatus(int value, const ValueTable& table, std::string_view path);
    static std::string CalculateProcessorVoltage(int value, const ValueTable& table);
    std::string CalculateCacheSize(int value, const ValueTable& table, std::string_view path);
    std::string CalculateCacheConfiguration(int value, const ValueTable& table, std::string_view path);
    static std::string CalculateFlag(int value, const ValueTable& table);
    std::string CalculateHardwareSecuritySettings(int value, const ValueTable& table, std::string_view path);
    static std::string CalculateIPMISpecRev(int value);
    static std::string CalculateBIOSRomSize(int value);
    static std::string interpretUUID(std::string_view text);
    static std::string reverse(std::string_view text);

    // tree: nodes and their paths
    TreeNode* FindNode(std::string_view path) const; ///< null where the path has no node
    TreeNode& NodeAt(std::string_view path, std::string_view separator = {}, std::string_view name = {});
    TreeNode& ListChild(TreeNode& parent, std::string_view separator, std::string_view name);
    TreeNode& ListInstance(TreeNode& parent, std::size_t index);
    TreeNode& AddInstance(TreeNode& parent, std::size_t index);
    TreeNode& AddLeaf(TreeNode& parent, std::string_view name, std::string_view value);
    TreeNode& AddInner(TreeNode& parent, std::string_view name);
    TreeNode& StoreInner(std::string_view path);
    void Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view value = {});
    void AddNode(std::string_view parent, std::string_view name, std::string_view value, _NODE_TYPE type);
    void InsertLeafXNode(std::string_view value, std::string_view path);
    void FillInfo(std::string_view path, std::string_view source, char separator);
    void CopySubtree(const TreeNode& source, TreeNode& copy);
    void DeleteResultMap(std::string_view path);

    // inventory
    using DevicesByArray = std::unordered_map<std::string_view, std::vector<std::size_t>>;
    void FillMemoryArray();
    DevicesByArray GroupDevices() const;
    void FillPresentMemory(std::string_view devicePath, std::string_view arrayPath,
                           unsigned short arrayHandle, const DevicesByArray& devices);
    void FillProcessorInfo();
    void DumpMemorySPD();
    void InitBiosReservedMem();

// Clang holds a deprecated class against every use of its alias, too.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
#endif
    /// The range searched for the entry point; later the last SPD block.
    OS::Driver::MappingOwner EntryMapping;
    OS::Driver::MappingOwner TableMapping; ///< the table, where it comes from physical memory
#if defined(__clang__)
#pragma clang diagnostic pop
#endif

    std::string RootPath;
    unsigned char* TableBase = nullptr; ///< first byte of the table; read during construction only
    unsigned short TableLength = 0;
    std::string SMBiosVersion; ///< "2.7"
    unsigned int ReservedMemAddress = 0;
    unsigned int ReservedMemSize = 0;
    std::unordered_map<unsigned short, SMBiosStructure> StructuresByHandle; ///< of equal handles the last
    std::unordered_map<std::string_view, TreeNode*> ResultNodes; ///< the tree, by full path, in Store
    std::vector<SubTypeLink> SubTypeLinks;
    std::map<int, std::vector<std::string>> ValidSubTypes; ///< by type the fields that hold a handle
    unsigned char* RawTableBuffer = nullptr;               ///< the firmware's block, where the table is in it
    std::unordered_map<unsigned char, SMBTable> TypeTables;
    std::shared_ptr<NodeStore> Store; ///< owns the nodes, their paths and RawTableBuffer; shared by copies
};

} // namespace Protocol::SMBIOS
