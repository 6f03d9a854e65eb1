// Objects as values: returned, kept in an optional, moved and copied. The one argument is an image.

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>
#include <SMBIOSProtocol/Version.h>

#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>

using namespace Protocol::SMBIOS;

namespace {

SMBIOSProtocolImpl Read(const char* file)
{
    SMBIOSProtocolImpl read(TableImage::FromFile(file), Reading::ByVersion);
    return read;
}

bool allHold = SMBIOSPROTOCOL_VERSION_AT_LEAST(1, 0, 0) && Version() == std::string(SMBIOSPROTOCOL_VERSION);

void Expect(const char* what, const SMBIOSProtocolImpl& object, NodeView node)
{
    if (object.Find("/SMBIOS/Type1/Manufacturer") == node)
        return;
    std::printf("%s: another answer\n", what);
    allHold = false;
}

} // namespace

int main(int, char* argv[])
{
    SMBIOSProtocolImpl first = Read(argv[1]);
    const NodeView node = first.Find("/SMBIOS/Type1/Manufacturer");
    std::optional<SMBIOSProtocolImpl> second(std::move(first));
    Expect("moved to", *second, node);

    std::map<std::string, _XNode> found;
    unsigned int address = 1;
    // NOLINTNEXTLINE(bugprone-use-after-move): what it does then is the question
    first.SMBiosSearch("/SMBIOS", found);
    first.GetBiosReservedMem(&address, nullptr);
    std::optional<SMBIOSProtocolImpl> copy(first);
    Expect("moved from", first, NodeView());
    Expect("a copy of what was moved from", *copy, NodeView());

    first = std::move(*second);
    second.reset();
    copy = std::as_const(first);
    SMBIOSProtocolImpl& itself = first;
    first = std::move(itself);
    Expect("assigned", first, node);
    Expect("copied", *copy, node);
    return allHold && node && found.empty() && address == 0 ? 0 : 1;
}
