// From the bytes of one structure to its nodes. Two readings differ in where a structure ends:
//
//   by version   at the end of the table: neither the structure's length byte nor any count takes part. A
//                structure shorter than its fields is read on past its end, into its strings and what follows
//   newest       where its length byte says: what lies partly or wholly behind that is not there
//
// Read are, in the order of the type's sections, of which by version has the first alone:
//
//   fields    at their offsets, from the structure's first byte or from where the section before ends
//   groups    records that repeat, as many as a field counts or as fit: nodes "Name[1]", "Name[2]", ...
//   strings   all of them: leaves "Name[1]", "Name[2]", ...

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Definition.h"

#include <string_view>

namespace Protocol::SMBIOS {

class StructureDecoder {
public:
    /// Decodes a structure of `table` into the tree of `object`, which is under construction.
    StructureDecoder(SMBIOSProtocolImpl& object, const SMBTable& table, const SMBiosStructure& structure);

    /// Adds the structure's nodes below `node`.
    void Decode(TreeNode& node);

private:
    /// The structure, what of it lies behind some offset, or one record in it.
    struct Area {
        const unsigned char* Bytes;
        int Size;

        bool Holds(int offset, int width) const { return width > 0 && offset + width <= Size; }
        int ByteAt(int offset) const { return Holds(offset, 1) ? Bytes[offset] : 0; }
        Area From(int offset) const;
        int WidthOf(const Catalogue::Field& field) const;
    };

    int DecodeSection(const Area& area, const Area& before, const Catalogue::Section& section,
                      TreeNode& node);
    int DecodeFields(const Area& area, const Catalogue::Section& section, TreeNode& node);
    bool HasRecords(const Area& area, const Catalogue::Field& field) const;
    int DecodeGroup(const Area& area, const Area& before, const Catalogue::Section& group, TreeNode& node);
    void DecodeStrings(std::string_view name, TreeNode& node);
    void DecodeField(const unsigned char* bytes, int width, const Catalogue::Field& field, TreeNode& node);
    void DecodeParts(const unsigned char* bytes, int width, const Catalogue::Field& field, TreeNode& node);
    void StorePlain(std::string_view value, const Catalogue::Field& field, TreeNode& node);
    bool IsLink(std::string_view field) const;

    SMBIOSProtocolImpl& Object;
    NodeStore& Nodes;
    const SMBTable& Table;
    const SMBiosStructure& Structure;
    std::size_t LongestText; ///< of a string, in bytes; the rest is not read
};

} // namespace Protocol::SMBIOS
