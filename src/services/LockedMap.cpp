#include "services/LockedMap.h"

#include "SMBIOSProtocol/Logger.h"
#include "services/CMySemLock.h"
#include "services/MemMapDriverImpl.h"

namespace Protocol::SMBIOS {

namespace {

class MappingLock {
public:
    MappingLock() { Common::CMySemLock::AcquireSymLock(Lock, "GLOBAL_MEMORY_MAPPING"); }
    ~MappingLock() { Common::CMySemLock::ReleaseSymLock(Lock); }
    MappingLock(const MappingLock&) = delete;
    MappingLock& operator=(const MappingLock&) = delete;

private:
    _MY_LOCK Lock;
};

} // namespace

void MapUnderLock(unsigned long address, unsigned int length, OS::Driver::MappingOwner& owner,
                  const char* function, int line)
{
    OS::Driver::MemMapDriverImpl driver;
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    if (logger.TraceLocks)
        logger.Log(2, SourceFile, function, line, "Locking at %s: %s: %d", SourceFile, function, line);
    const MappingLock lock;
    driver.Map(address, length, &owner);
}

} // namespace Protocol::SMBIOS
