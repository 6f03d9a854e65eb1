// Prints who made the machine that this runs on, and where that cannot be read, what the user can do. Reading
// may need root.

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <iostream>

namespace {

using Protocol::SMBIOS::SMBIOSProtocolImpl;

constexpr struct {
    unsigned short Code;
    const char* Advice;
} AdviceByCode[] = {
    {RESULT_OUT_OF_MEMORY, "Free some memory, then try again."},
    {RESULT_NO_TABLE,
     "Run as root, and on the machine itself: a container may not see the firmware, and some virtual "
     "machines have none to show."},
    {RESULT_BAD_CHECKSUM, "Look for a firmware update: the table's entry point is damaged."},
    {RESULT_UNSUPPORTED_VERSION,
     "Read it with the newest catalogue: TableImage::OfThisMachine() and Reading::Newest."},
    {RESULT_MAPPING_DENIED,
     "Run as root. Where that was so: a locked-down kernel keeps the memory to itself, and no "
     "right of a user changes that."},
    {RESULT_MAPPING_UNAVAILABLE, "Run on the machine itself, or let the container see /sys/firmware/dmi."},
    {RESULT_MAPPING_FAILED, "Look for a firmware update: the firmware names an address that has no memory."},
};

const char* AdviceOn(unsigned short code)
{
    for (const auto& each : AdviceByCode) {
        if (each.Code == code)
            return each.Advice;
    }
    return "Report this with the message above.";
}

void PrintIdentity(const SMBIOSProtocolImpl& machine)
{
    for (const char* field : {"Manufacturer", "ProductName", "SerialNo", "UUID"}) {
        const auto leaf = machine.Find(std::string("/SMBIOS/Type1/") + field);
        std::cout << field << ": " << (leaf ? leaf.Value() : "(not in the table)") << '\n';
    }
}

} // namespace

int main()
try {
    PrintIdentity(SMBIOSProtocolImpl::CreateInstance());
} catch (const ResultStatus& failure) {
    std::cerr << failure.what() << '\n' << AdviceOn(failure.Code()) << '\n';
    return 1;
} catch (const std::bad_alloc& failure) { // a table made to exhaust memory, too: see TreeTooLarge
    std::cerr << failure.what() << '\n';
    return 1;
}
