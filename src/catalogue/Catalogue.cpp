#include "catalogue/Catalogue.h"

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {

namespace {

constexpr std::array<const Type*, 49> AllTypes = {
    &Type000BiosInformation,
    &Type001SystemInformation,
    &Type002BaseboardInformation,
    &Type003SystemEnclosure,
    &Type004ProcessorInformation,
    &Type005MemoryController,
    &Type006MemoryModule,
    &Type007CacheInformation,
    &Type008PortConnectorInformation,
    &Type009SystemSlots,
    &Type010OnBoardDevices,
    &Type011OemStrings,
    &Type012SystemConfigurationOptions,
    &Type013BiosLanguage,
    &Type014GroupAssociations,
    &Type015SystemEventLog,
    &Type016PhysicalMemoryArray,
    &Type017MemoryDevice,
    &Type018MemoryErrorInformation32,
    &Type019MemoryArrayMappedAddress,
    &Type020MemoryDeviceMappedAddress,
    &Type021BuiltInPointingDevice,
    &Type022PortableBattery,
    &Type023SystemReset,
    &Type024HardwareSecurity,
    &Type025SystemPowerControls,
    &Type026VoltageProbe,
    &Type027CoolingDevice,
    &Type028TemperatureProbe,
    &Type029ElectricalCurrentProbe,
    &Type030OutOfBandRemoteAccess,
    &Type031BootIntegrityServices,
    &Type032SystemBootInformation,
    &Type033MemoryErrorInformation64,
    &Type034ManagementDevice,
    &Type035ManagementDeviceComponent,
    &Type036ManagementDeviceThresholds,
    &Type037MemoryChannel,
    &Type038IpmiDevice,
    &Type039SystemPowerSupply,
    &Type040AdditionalInformation,
    &Type041OnboardDevicesExtended,
    &Type042ManagementControllerHostInterface,
    &Type043TpmDevice,
    &Type044ProcessorAdditionalInformation,
    &Type045FirmwareInventory,
    &Type046StringProperty,
    &Type132PlatformMemoryDescription,
    &Type133PlatformReservedMemory,
};

} // namespace

const std::array<const Type*, 49>& Types()
{
    return AllTypes;
}

Tables TablesOf(Revision revision, TableVersion version)
{
    Tables tables;
    tables.reserve(AllTypes.size());
    for (const Type* type : AllTypes) {
        if (revision < type->From)
            continue;
        const bool isOlder = type->Older != nullptr && version.IsOlderThan(type->Since);
        const Type* const layout = isOlder ? type->Older : type;
        const std::size_t sectionCount = revision == Newest ? layout->SectionCount : 0;
        tables.emplace(type->Number, SMBTable{layout, revision, sectionCount});
    }
    return tables;
}

SMBTable TableWithoutData()
{
    return {&TypeWithoutTable, Newest, TypeWithoutTable.SectionCount};
}

} // namespace Protocol::SMBIOS::Catalogue
