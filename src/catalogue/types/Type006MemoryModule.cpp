// Type 6, Memory Module Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row BankConnectionSpecials[] = {{0xF, "no connection"}};

constexpr Row SizeSpecials[] = {
    {0x7D, "not determinable"},
    {0x7E, "nothing enabled"},
    {0x7F, "not installed"},
};

constexpr Part BankConnectionsParts[] = {
    {"SecondBankConnection", 0, 3, Plain.Except(BankConnectionSpecials)},
    {"FirstBankConnection",  4, 7, Plain.Except(BankConnectionSpecials)},
};

constexpr Row CurrentMemoryTypeRows[] = {
    {0, "Other"},
    {1, "Unknown"},
    {2, "Standard"},
    {3, "Fast Page Mode"},
    {4, "EDO"},
    {5, "Parity"},
    {6, "ECC"},
    {7, "SIMM"},
    {8, "DIMM"},
    {9, "Burst EDO"},
    {10, "SDRAM"},
};

constexpr Row BankTypeRows[] = {
    {0x00, "Single-bank connection"},
    {0x01, "Double-bank connection"},
};

constexpr Part InstalledSizeParts[] = {
    {"InstalledSizeExponent", 0, 6, In(Unit::PowerOfTwoMegabytes).Except(SizeSpecials)},
    {"InstalledBankType",     7, 7, Enumeration(BankTypeRows)},
};

constexpr Part EnabledSizeParts[] = {
    {"EnabledSizeExponent", 0, 6, In(Unit::PowerOfTwoMegabytes).Except(SizeSpecials)},
    {"EnabledBankType",     7, 7, Enumeration(BankTypeRows)},
};

constexpr Row ErrorStatusRows[] = {
    {0, "Uncorrectable errors"},
    {1, "Correctable errors"},
    {2, "Status is in the event log"},
};

constexpr Field Fields[] = {
    {0x04, "SocketDesignation", StringReference, String,  V2_0, "socket name on the board"},
    {0x05, "BankConnections",   1,               Decimal, V2_0, "banks that the socket is wired to", Packed(BankConnectionsParts)},
    {0x06, "CurrentSpeed",      1,               Decimal, V2_0, "speed",                             In(Unit::Nanoseconds).Except(UnknownIf0)},
    {0x07, "CurrentMemoryType", 2,               Decimal, V2_0, "type of the module",                Bits(CurrentMemoryTypeRows)},
    {0x09, "InstalledSize",     1,               Decimal, V2_0, "installed size",                    Packed(InstalledSizeParts)},
    {0x0A, "EnabledSize",       1,               Decimal, V2_0, "enabled size",                      Packed(EnabledSizeParts)},
    {0x0B, "ErrorStatus",       1,               Decimal, V2_0, "errors of the module",              Bits(ErrorStatusRows)},
};

} // namespace

constexpr Type Type006MemoryModule{6, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type006MemoryModule));

} // namespace Protocol::SMBIOS::Catalogue
