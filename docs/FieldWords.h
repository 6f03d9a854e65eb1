// What a field turns into, in words. What a decoder makes of it is found by decoding structures that hold it.

#pragma once

#include "catalogue/Definition.h"

#include <ostream>
#include <string>

/// One field of a type, and the section that it stands in.
struct FieldPlace {
    const Protocol::SMBIOS::Catalogue::Type& Type;
    const Protocol::SMBIOS::Catalogue::Section& Section;
    const Protocol::SMBIOS::Catalogue::Field& Field;
};

/// `text` as code, within a table.
std::string Code(const std::string& text);

/// "0Ah", of as many digits.
std::string InHex(unsigned long long value, int digits);

/// "1 byte", "2 bytes".
std::string ByteCount(int count);

/// The field of `type` at `offset`, which counts as those of `section`, as code. Throws std::logic_error
/// where there is none.
std::string FieldAt(const Protocol::SMBIOS::Catalogue::Type& type,
                    const Protocol::SMBIOS::Catalogue::Section& section, int offset);

/// What stands at the field: "leaf: a string". `links` is the place that explains handles.
std::string WordsOf(const FieldPlace& place, const std::string& links);

/// What the field tells, with its unit and the special values that the revision has.
std::string MeaningOf(const FieldPlace& place, Protocol::SMBIOS::Catalogue::Revision revision);

/// Whether a leaf with the number itself stands beside the field.
bool HasRawLeaf(const FieldPlace& place);

/// Whether a table has the texts of the field, or the leaves below it.
bool HasTable(const FieldPlace& place);

/// The table of the leaves that a field turns into, of a decoder or packed.
void PrintLeaves(std::ostream& out, const FieldPlace& place);
