#include "services/ErrorMgr.h"

#include "SMBIOSProtocol/ResultStatus.h"

namespace ErrorManager {

ErrorMgr& ErrorMgr::GetInstance()
{
    static ErrorMgr manager;
    return manager;
}

ErrorMgr::ErrorMgr()
    : Texts{
          {RESULT_OUT_OF_MEMORY,
           "There is no memory for a copy of the firmware's SMBIOS table. Free some memory and try again."},
          {RESULT_NO_TABLE,
           "No SMBIOS table was found. On the running machine: neither the BIOS segment nor the operating "
           "system offers one; run with administrator rights, and outside a container. In a table image: it "
           "is empty or holds no complete 32-bit entry point (anchor \"_SM_\"); put one behind the table."},
          {RESULT_BAD_CHECKSUM,
           "The SMBIOS entry point is damaged: its bytes do not sum to 0. Take a fresh copy of the table, or "
           "have the firmware updated."},
          {RESULT_UNSUPPORTED_VERSION,
           "The SMBIOS version of the table is not supported. Versions 2.3 to 2.8 and 3.0 are; to read a "
           "table of any version, construct the object from a TableImage with Reading::Newest."},
      }
{
}

std::string ErrorMgr::Get(int code)
{
    const auto text = Texts.find(code);
    return text == Texts.end() ? "Unknown failure, code " + std::to_string(code) + "." : text->second;
}

} // namespace ErrorManager
