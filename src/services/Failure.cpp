#include "services/Failure.h"

#include "SMBIOSProtocol/Logger.h"
#include "SMBIOSProtocol/ResultStatus.h"
#include "services/ErrorMgr.h"

namespace Protocol::SMBIOS {

void RaiseFailure(unsigned short code)
{
    const std::string text = ErrorManager::ErrorMgr::GetInstance().Get(code);
    std::string message;
    LOGGER::Logger::CreateInstance().CreateMessage(message, text);
    throw ResultStatus(code, message, "", XCOMMAND_NONE);
}

} // namespace Protocol::SMBIOS
