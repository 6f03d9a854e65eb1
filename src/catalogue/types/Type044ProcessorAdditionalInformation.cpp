// Type 44, Processor Additional Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ProcessorTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "IA32 (x86)"},
    {0x02, "x64 (x86-64, Intel64, AMD64, EM64T)"},
    {0x03, "Intel Itanium architecture"},
    {0x04, "32-bit ARM (Aarch32)"},
    {0x05, "64-bit ARM (Aarch64)"},
    {0x06, "32-bit RISC-V (RV32)"},
    {0x07, "64-bit RISC-V (RV64)"},
    {0x08, "128-bit RISC-V (RV128)"},
    {0x09, "32-bit LoongArch (LoongArch32)"},
    {0x0A, "64-bit LoongArch (LoongArch64)"},
};

constexpr Field Fields[] = {
    {0x04, "ReferencedHandle",      2,              Decimal, V3_3, "the one that this one adds to",                                                        HandleOf(4)},
    {0x06, "BlockLength",           1,              Decimal, V3_3, "length of the data of the processor-specific block (its two head bytes not included)", In(Unit::Bytes)},
    {0x07, "ProcessorType",         1,              Decimal, V3_3, "architecture that the block belongs to",                                               Enumeration(ProcessorTypeRows)},
    {0x08, "ProcessorSpecificData", AsSaidAt(0x06), Hex,     V3_3, "data in the form of that architecture"},
};

} // namespace

constexpr Type Type044ProcessorAdditionalInformation{44, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type044ProcessorAdditionalInformation));

} // namespace Protocol::SMBIOS::Catalogue
