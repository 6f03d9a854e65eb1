// What a field turns into, in words. The fields are those of the built catalogues; what a packed one turns
// into is found by decoding images that hold it.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"

#include <ostream>
#include <string>

using Tables = std::unordered_map<unsigned char, Protocol::SMBIOS::SMBDefinition>;

/// One field of a type, where it lies, and its table in revision 2.7.
struct FieldView {
    unsigned char Type;
    const Protocol::SMBIOS::SMBDefinition& Table;
    const Protocol::SMBIOS::SMBField& Field;
    std::size_t Offset;

    int Size() const;
    const Protocol::SMBIOS::ValueTable* Values() const; ///< null: none
};

/// The fields of a type, of a catalogue that reads by version.
std::vector<FieldView> FieldsOf(unsigned char type, const Protocol::SMBIOS::SMBDefinition& table);

/// `text` as code, within a table.
std::string Code(const std::string& text);

/// "0Ah", of as many bytes.
std::string Hex(unsigned int value, int bytes);

bool IsBits(const Protocol::SMBIOS::ValueTable& table);
bool IsEnumeration(const Protocol::SMBIOS::ValueTable& table);

/// What stands at the field: "leaf: a string". Ends in "below" where a table is to follow.
std::string Words(const FieldView& field);

/// Whether a leaf with the number itself stands beside the field.
bool HasRawLeaf(const FieldView& field);

/// The leaves that a decoder makes of a packed field. Throws std::logic_error where it makes others.
void PrintChildTable(std::ostream& out, const FieldView& field);
