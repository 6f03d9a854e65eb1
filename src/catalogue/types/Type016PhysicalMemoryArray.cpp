// Type 16, Physical Memory Array.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row LocationRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "System board or motherboard"},
    {0x04, "ISA add-on card"},
    {0x05, "EISA add-on card"},
    {0x06, "PCI add-on card"},
    {0x07, "MCA add-on card"},
    {0x08, "PCMCIA add-on card"},
    {0x09, "Proprietary add-on card"},
    {0x0A, "NuBus"},
    {0xA0, "PC-98/C20 add-on card"},
    {0xA1, "PC-98/C24 add-on card"},
    {0xA2, "PC-98/E add-on card"},
    {0xA3, "PC-98/Local bus add-on card"},
    {0xA4, "CXL add-on card", Later},
};

constexpr Row UseRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "System memory"},
    {0x04, "Video memory"},
    {0x05, "Flash memory"},
    {0x06, "Non-volatile RAM"},
    {0x07, "Cache memory"},
};

constexpr Row MemoryErrorCorrectionRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "None"},
    {0x04, "Parity"},
    {0x05, "Single-bit ECC"},
    {0x06, "Multi-bit ECC"},
    {0x07, "CRC"},
};

constexpr Row MaxCapacitySpecials[] = {{0x80000000, "see `ExtendedMaxCapacity`"}};

constexpr Row MemoryErrorInfoHandleSpecials[] = {
    {0xFFFE, "not provided"},
    {0xFFFF, "no error"},
};

constexpr Field Fields[] = {
    {0x04, "Location",              1, Decimal, V2_3, "where the array sits",                Enumeration(LocationRows)},
    {0x05, "Use",                   1, Decimal, V2_3, "what the array is for",               Enumeration(UseRows)},
    {0x06, "MemoryErrorCorrection", 1, Decimal, V2_3, "error correction",                    Enumeration(MemoryErrorCorrectionRows)},
    {0x07, "MaxCapacity",           4, Decimal, V2_3, "largest capacity",                    In(Unit::Kilobytes).Except(MaxCapacitySpecials)},
    {0x0B, "MemoryErrorInfoHandle", 2, Decimal, V2_3, "the error information",               HandleOf(18, 33).Except(MemoryErrorInfoHandleSpecials)},
    {0x0D, "NumMemoryDevices",      2, Decimal, V2_3, "number of device slots in the array"},
};

constexpr Field LaterFields[] = {
    {0x0F, "ExtendedMaxCapacity", 8, Unsigned, V2_7, "largest capacity (valid when `MaxCapacity` is 80000000h)", In(Unit::Bytes)},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

} // namespace

constexpr Type Type016PhysicalMemoryArray{16, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type016PhysicalMemoryArray));

} // namespace Protocol::SMBIOS::Catalogue
