/// \file
/// The library: a machine's SMBIOS data as a tree of named text values, queried by path.
///
/// Everything is done while an object is constructed; afterwards it only answers. The private operations
/// stand in the order in which construction runs them, and each group lives in the folder of src/ that bears
/// its name.

#pragma once

#include "SMBIOSProtocol/Export.h"
#include "SMBIOSProtocol/ISMBIOSProtocol.h"
#include "SMBIOSProtocol/Logger.h"
#include "SMBIOSProtocol/NodeView.h"
#include "SMBIOSProtocol/Reading.h"
#include "SMBIOSProtocol/ResultStatus.h"
#include "SMBIOSProtocol/SMBTable.h"
#include "SMBIOSProtocol/SMBiosStructure.h"
#include "SMBIOSProtocol/TableImage.h"
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
    ///
    /// Two things it takes without a word, and TableImage knows. Of a dump, which has the entry point in
    /// front of its table, the first structure is lost. Of a `size` above 65,535 the language hands over the
    /// low 16 bits alone; compilers warn of a constant, and of a container's size when asked (`-Wconversion`,
    /// `/W3`).
    SMBIOSProtocolImpl(unsigned char* image, unsigned short size, std::string rootPath);

    /// Decodes a table from anywhere, in the given reading. Touches no firmware and no physical memory, and
    /// so has no "/SPD_RAW". `table` need live only as long as this constructor runs; `rootPath` is the path
    /// of the tree's root. Throws TreeTooLarge, std::bad_alloc and, read by version, ResultStatus (1111
    /// version without a catalogue, 2106 a text in the table reads like an entry point, 2107 larger than
    /// 65,535 bytes with the entry point).
    SMBIOSProtocolImpl(const TableImage& table, Reading reading, std::string rootPath = "/SMBIOS");

    /// The copy answers like its source. Mappings move to the copy; the nodes are shared, and the last object
    /// that holds them releases them. Several threads may copy one object at once, while others search it.
    SMBIOSProtocolImpl(SMBIOSProtocolImpl& source);
    /// As copying does; what this object held goes. An assignment that throws changes neither object.
    SMBIOSProtocolImpl& operator=(SMBIOSProtocolImpl& source);

    /// The same of an object that stays as it is: mappings stay with it.
    SMBIOSProtocolImpl(const SMBIOSProtocolImpl& source);
    /// As copying does; what this object held goes. An assignment that throws changes nothing.
    SMBIOSProtocolImpl& operator=(const SMBIOSProtocolImpl& source);

    /// Takes over all of `source`. What is left of it has no node at any path and no reserved memory; it may
    /// be destroyed, assigned to and copied. Views of its nodes stay valid with the new object.
    SMBIOSProtocolImpl(SMBIOSProtocolImpl&& source) noexcept;
    /// As moving does; what this object held goes.
    SMBIOSProtocolImpl& operator=(SMBIOSProtocolImpl&& source) noexcept;

    ~SMBIOSProtocolImpl() override;

    /// See ISMBIOSProtocol. Any number of threads may search one object, each with a map of its own. A node's
    /// children are asked for through the virtual operation.
    void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) override;

    /// The node at `path`; none where there is none. The view is valid as long as this object or a copy of
    /// it. Any number of threads may look at one object.
    NodeView Find(std::string_view path) const;

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
    void Finish();          ///< behind all phases: keeps the tree, releases what they worked with
    void SwapWith(SMBIOSProtocolImpl& other) noexcept;

    // acquisition: sets TableBase, TableLength, SMBiosVersion
    void GetSMBiosEntryPtr();
    void ReadRawFirmwareBlock();
    int GetRawSmbiosData(unsigned char* buffer, unsigned long& size);
    void GetSMBiosEntryPtr(unsigned char* image, unsigned long long size);
    void TakeTable(std::vector<unsigned char>& structures, const TableImage& table);

    // catalogue: fills TypeTables and ValidSubTypes, plants the root and the nodes of the types
    void DefineSMBiosTable();
    void FillStaticInfoSMBIOSSpec_23();
    void FillStaticInfoSMBIOSSpec_24();
    void FillStaticInfoSMBIOSSpec_25();
    void FillStaticInfoSMBIOSSpec_26();
    void FillStaticInfoSMBIOSSpec_27();
    void FillNewest();
    void PlantTop(); ///< the root, a node for each type in TypeTables, and the inventories
    void DefineValidSubTypes();
    std::vector<unsigned char> CataloguedTypes() const; ///< keys of TypeTables, ascending

    // structures: walks the table into Instances and StructuresByHandle
    void ParseSMBiosTable();
    void ParseWithNewest(); ///< the same, with an entry in TypeTables for each type that occurs
    void IndexByHandle();   ///< all that the walk has found

    // tree: decodes every structure under its type, then those behind links
    std::size_t ExpectedNodes() const; ///< about as many as the tree will have
    void FillSMBIOSDataTables();
    void FillSubTypeDataTables();

    // decoding: one structure, one field, one value
    const SMBTable& SMBiosDataTable(std::string_view path, int type, int handle);
    void DecodeFields(const SMBTable& table, const SMBiosStructure& structure, int type, TreeNode& node);
    struct Area;
    void DecodeSections(const SMBTable& table, const SMBiosStructure& structure, TreeNode& node);
    int DecodeFieldsIn(const Area& area, const SMBSection& section, TreeNode& node);
    int DecodeGroup(const Area& area, const SMBSection& section, const Area& before, TreeNode& node);
    void DecodeStrings(const SMBiosStructure& structure, std::string_view name, TreeNode& node);
    void DecodeField(const Area& area, const Catalogue::Field& field, const ValueTable* const* values,
                     int width, TreeNode& node);
    void DecodeParts(const Catalogue::Field& field, const ValueTable* const* values, unsigned long long value,
                     TreeNode& node);
    void StorePlain(TreeNode& node, std::string_view name, std::string_view value, int type);
    bool IsHandleField(int type, std::string_view name) const;
    static void ExtractField(const char* source, char* destination, unsigned char width,
                             FieldInterpretation interpretation);
    static std::string ConvertIntToString(unsigned long long value);
    void FillFieldInterpretation(TreeNode& node, std::string_view value, const ValueTable& table);
    void InterpretEnumeration(TreeNode& node, std::string_view value, std::string_view text);
    void InterpretBits(unsigned long long value, const ValueTable& table, TreeNode& node);
    std::string CalculateProcessorStatus(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateProcessorVoltage(int value, const ValueTable& table);
    std::string CalculateCacheSize(int value, const ValueTable& table, TreeNode& node);
    std::string CalculateCacheConfiguration(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateFlag(int value, const ValueTable& table);
    std::string CalculateHardwareSecuritySettings(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateIPMISpecRev(int value);
    static std::string CalculateBIOSRomSize(int value);
    static std::string interpretUUID(std::string_view text);
    static std::string reverse(std::string_view text);

    // tree: nodes and their paths
    TreeNode* FindNode(std::string_view path) const; ///< null where the path has no node
    const TreeNode* FindChild(const TreeNode& parent,
                              std::string_view name) const; ///< null where none is listed
    TreeNode& NodeAt(std::string_view path, std::string_view separator = {}, std::string_view name = {});
    TreeNode& ListChild(TreeNode& parent, std::string_view separator, std::string_view name);
    TreeNode& ListInstance(TreeNode& parent, std::size_t index);
    TreeNode& AddInstance(TreeNode& parent, std::size_t index);
    TreeNode& AddNode(TreeNode& parent, std::string_view name, _NODE_TYPE type,
                      std::string_view lasting = {});
    TreeNode& AddInner(TreeNode& parent, std::string_view name) { return AddNode(parent, name, NODE_INNER); }
    TreeNode& AddLeaf(TreeNode& parent, std::string_view name, std::string_view value);
    TreeNode& AddWord(TreeNode& parent, std::string_view name, std::string_view constant);
    void InsertLeafXNode(std::string_view value, TreeNode& node);
    void Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view lasting = {});
    void FillInfo(const TreeNode& source, TreeNode& copy);
    void DeleteResultMap(std::string_view path);

    // inventory
    struct MemoryDevice;
    using DevicesByArray = std::unordered_map<std::string_view, std::vector<MemoryDevice>>;
    void FillMemoryArray();
    DevicesByArray GroupDevices() const;
    void FillPresentMemory(TreeNode& array, TreeNode& list, const std::vector<MemoryDevice>& devices);
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
    unsigned int TableLength = 0;
    std::string SMBiosVersion; ///< "2.7"
    unsigned int ReservedMemAddress = 0;
    unsigned int ReservedMemSize = 0;
    /// Into the Instances of TypeTables, of equal handles the last in the table.
    std::unordered_map<unsigned short, const SMBiosStructure*> StructuresByHandle;
    /// The tree, by full path; it owns the nodes, their texts and RawTableBuffer. Copies share it.
    std::shared_ptr<NodeStore> ResultNodes;
    std::vector<SubTypeLink> SubTypeLinks;
    std::map<int, std::vector<std::string>> ValidSubTypes; ///< by type the fields that hold a handle
    unsigned char* RawTableBuffer = nullptr;               ///< the firmware's block, where the table is in it
    std::unordered_map<unsigned char, SMBTable> TypeTables;
    Reading HowRead = Reading::ByVersion;
};

} // namespace Protocol::SMBIOS
