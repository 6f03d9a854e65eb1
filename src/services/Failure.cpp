#include "services/Failure.h"

#include "SMBIOSProtocol/Logger.h"
#include "SMBIOSProtocol/ResultStatus.h"
#include "services/ErrorMgr.h"

namespace Protocol::SMBIOS {

void RaiseFailure(unsigned short code)
{
    RaiseFailure(code, ErrorManager::ErrorMgr::GetInstance().Get(code));
}

void RaiseFailure(unsigned short code, const std::string& text)
{
    std::string message;
    LOGGER::Logger::CreateInstance().CreateMessage(message, "%s", text.c_str());
    throw ResultStatus(code, message, "", XCOMMAND_NONE);
}

} // namespace Protocol::SMBIOS
