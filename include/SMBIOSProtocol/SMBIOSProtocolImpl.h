/// \file
/// The library: a machine's SMBIOS data as a tree of named text values, queried by path.
///
/// The constructors do all the work; afterwards an object only answers. The private operations stand in the
/// order in which construction runs them. Each group is in the folder of src/ that has its name.

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
class ValueTable;
enum class FieldInterpretation;
struct TreeNode;

/// A machine's SMBIOS data as a tree: of the running machine, or of a table that the caller has.
class SMBIOSPROTOCOL_API SMBIOSProtocolImpl : public ISMBIOSProtocol {
public:
    /// The object of the running machine, rooted at "/SMBIOS". The first call reads the firmware's tables and
    /// decodes them; every later call returns the same object. Throws ResultStatus, TreeTooLarge,
    /// std::bad_alloc; after a failure the next call starts over. The object lives until the process ends.
    static SMBIOSProtocolImpl& CreateInstance();

    /// Decodes a table image by version. Prefer the next constructor: it knows dumps and large tables.
    ///
    /// The image is `size` bytes from `image`: the structure table, then a 32-bit entry point anywhere behind
    /// it. Do not pass a dump, whose entry point stands in front: the structures at its start would be lost.
    /// Do not pass more than 65,535 bytes: `size` would lose its upper bits.
    ///
    /// The image stays the caller's, who may free it when the constructor has returned. `rootPath` is the
    /// path of the tree's root, in front of all others. Reads no firmware and no physical memory. Throws
    /// ResultStatus (1013 no usable entry point, 1024 bad checksum, 1111 version without a catalogue),
    /// TreeTooLarge, std::bad_alloc.
    SMBIOSProtocolImpl(unsigned char* image, unsigned short size, std::string rootPath);

    /// Decodes a table from anywhere. Use Reading::Newest unless a program relies on the paths by version.
    ///
    /// The object keeps nothing of `table`. `rootPath` is the path of the tree's root. Reads no physical
    /// memory, so the tree has no "/SPD_RAW". Throws TreeTooLarge, std::bad_alloc and, read by version,
    /// ResultStatus (1111 a version without a catalogue, or a table without a version, 2107 larger than
    /// 65,535 bytes with the entry point).
    SMBIOSProtocolImpl(const TableImage& table, Reading reading, std::string rootPath = "/SMBIOS");

    /// Copies share the nodes, and the last of them releases them. Several threads may copy one object while
    /// others search it. The mappings of physical memory move to the copy.
    SMBIOSProtocolImpl(SMBIOSProtocolImpl& source);
    /// Releases what this object held, and copies. An assignment that throws changes neither object.
    SMBIOSProtocolImpl& operator=(SMBIOSProtocolImpl& source);

    /// Copies a constant object, which keeps its mappings.
    SMBIOSProtocolImpl(const SMBIOSProtocolImpl& source);
    /// Releases what this object held, and copies. An assignment that throws changes nothing.
    SMBIOSProtocolImpl& operator=(const SMBIOSProtocolImpl& source);

    /// Takes over all of `source`, which then has no nodes and no reserved memory. Views of its nodes stay
    /// valid.
    SMBIOSProtocolImpl(SMBIOSProtocolImpl&& source) noexcept;
    /// Releases what this object held, and moves.
    SMBIOSProtocolImpl& operator=(SMBIOSProtocolImpl&& source) noexcept;

    ~SMBIOSProtocolImpl() override;

    /// See ISMBIOSProtocol. Any number of threads may search one object, each with a map of its own. A class
    /// that overrides this operation is asked for each child in turn.
    void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) override;

    /// The node at `path`, or a view without a node. The view is valid as long as this object or a copy of
    /// it. Any number of threads may call it.
    NodeView Find(std::string_view path) const;

    /// Stores the physical address and the size in bytes of the memory that the firmware reserves. Both are 0
    /// where the table does not say, and in any object that was made from a table or image. Either pointer
    /// may be null.
    void GetBiosReservedMem(unsigned int* address, unsigned int* size);

private:
    friend class StructureDecoder;

    // instance
    SMBIOSProtocolImpl();
    void InitSMBiosTable(); ///< reads the machine anew into this object
    void BuildTree();       ///< the phases from the catalogue to the inventories
    void Finish();          ///< after all phases: releases all but the tree
    void SwapWith(SMBIOSProtocolImpl& other) noexcept;

    // acquisition: sets TableBase, TableLength, SMBiosVersion
    void GetSMBiosEntryPtr();
    void ReadRawFirmwareBlock();
    static int GetRawSmbiosData(unsigned char* buffer, unsigned long& size);
    void GetSMBiosEntryPtr(unsigned char* image, unsigned long long size);

    // catalogue: fills TypeTables and ValidSubTypes
    void DefineSMBiosTable();
    void FillStaticInfoSMBIOSSpec_23();
    void FillStaticInfoSMBIOSSpec_24();
    void FillStaticInfoSMBIOSSpec_25();
    void FillStaticInfoSMBIOSSpec_26();
    void FillStaticInfoSMBIOSSpec_27();
    void DefineValidSubTypes();

    // structures: walks the table into Instances and StructuresByHandle
    void ParseSMBiosTable();

    // tree: decodes every structure under its type, then those behind links
    void FillSMBIOSDataTables();
    void FillSubTypeDataTables();

    // decoding: one type, one field, one value
    const SMBTable& SMBiosDataTable(std::string_view path, int type, int handle);
    static void ExtractField(const char* source, char* destination, unsigned char width,
                             FieldInterpretation interpretation);
    void FillFieldInterpretation(TreeNode& node, std::string_view value, const ValueTable& table);
    std::string CalculateProcessorStatus(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateProcessorVoltage(int value, const ValueTable& table);
    std::string CalculateCacheSize(int value, const ValueTable& table, TreeNode& node);
    std::string CalculateCacheConfiguration(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateFlag(int value, const ValueTable& table);
    std::string CalculateHardwareSecuritySettings(int value, const ValueTable& table, TreeNode& node);
    static std::string CalculateIPMISpecRev(int value);
    static std::string CalculateBIOSRomSize(int value);
    static std::string ConvertIntToString(unsigned long long value);
    static std::string interpretUUID(std::string_view text);
    static std::string reverse(std::string_view text);

    // tree: what is written to it
    TreeNode& AddNode(TreeNode& parent, std::string_view name, _NODE_TYPE type,
                      std::string_view lasting = {});
    void InsertLeafXNode(std::string_view value, TreeNode& node);
    void FillInfo(const TreeNode& source, TreeNode& copy);
    void DeleteResultMap(std::string_view path);

    // inventory
    void FillMemoryArray();
    void FillPresentMemory(TreeNode& array, TreeNode& list, const std::vector<const TreeNode*>& devices);
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
