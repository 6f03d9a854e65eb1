// The structure types of the catalogue, each in a file of its own below types/.

#pragma once

#include "catalogue/Definition.h"
#include "catalogue/WellFormed.h"

namespace Protocol::SMBIOS::Catalogue {

extern const Type Type000BiosInformation;
extern const Type Type001SystemInformation;
extern const Type Type002BaseboardInformation;
extern const Type Type003SystemEnclosure;
extern const Type Type004ProcessorInformation;
extern const Type Type005MemoryController;
extern const Type Type006MemoryModule;
extern const Type Type007CacheInformation;
extern const Type Type008PortConnectorInformation;
extern const Type Type009SystemSlots;
extern const Type Type010OnBoardDevices;
extern const Type Type011OemStrings;
extern const Type Type012SystemConfigurationOptions;
extern const Type Type013BiosLanguage;
extern const Type Type014GroupAssociations;
extern const Type Type015SystemEventLog;
extern const Type Type016PhysicalMemoryArray;
extern const Type Type017MemoryDevice;
extern const Type Type018MemoryErrorInformation32;
extern const Type Type019MemoryArrayMappedAddress;
extern const Type Type020MemoryDeviceMappedAddress;
extern const Type Type021BuiltInPointingDevice;
extern const Type Type022PortableBattery;
extern const Type Type023SystemReset;
extern const Type Type024HardwareSecurity;
extern const Type Type025SystemPowerControls;
extern const Type Type026VoltageProbe;
extern const Type Type027CoolingDevice;
extern const Type Type028TemperatureProbe;
extern const Type Type029ElectricalCurrentProbe;
extern const Type Type030OutOfBandRemoteAccess;
extern const Type Type031BootIntegrityServices;
extern const Type Type032SystemBootInformation;
extern const Type Type033MemoryErrorInformation64;
extern const Type Type034ManagementDevice;
extern const Type Type035ManagementDeviceComponent;
extern const Type Type036ManagementDeviceThresholds;
extern const Type Type037MemoryChannel;
extern const Type Type038IpmiDevice;
extern const Type Type039SystemPowerSupply;
extern const Type Type040AdditionalInformation;
extern const Type Type041OnboardDevicesExtended;
extern const Type Type042ManagementControllerHostInterface;
extern const Type Type043TpmDevice;
extern const Type Type044ProcessorAdditionalInformation;
extern const Type Type045FirmwareInventory;
extern const Type Type046StringProperty;
extern const Type Type132PlatformMemoryDescription;
extern const Type Type133PlatformReservedMemory;

/// How a structure of any other type reads with the newest revision. Its number means nothing.
extern const Type TypeWithoutTable;

} // namespace Protocol::SMBIOS::Catalogue
