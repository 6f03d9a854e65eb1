// A caller's image. The input is the image.

#include "Properties.h"

#include <algorithm>
#include <string_view>

namespace {

ObjectOwner Decoded(const unsigned char* data, std::size_t size)
{
    return TryMake([&] {
        Bytes image(data, data + size); // gone when the object is searched
        return std::make_unique<SMBIOSProtocolImpl>(image.data(), static_cast<unsigned short>(size),
                                                    "/SMBIOS");
    });
}

// As a table of the same length, with the version that its own entry point gives. A tree near the limit has
// no room for the SPD blocks.
void CheckLiveRoute(const Bytes& image, bool isBlock, const Tree& tree)
{
    constexpr std::string_view Anchor = "_SM_";
    const auto entryPoint = std::search(image.begin(), image.end(), Anchor.begin(), Anchor.end());
    const auto machine = isBlock ? FakeSystem::Machine::WithBlock : FakeSystem::Machine::WithEntryPoint;
    CheckRoute(machine(image, entryPoint[6], entryPoint[7]), tree);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size > 65'535)
        return 0;
    const ObjectOwner object = Decoded(data, size);
    if (object == nullptr)
        return 0;
    const Tree tree = Everything(*object);
    const unsigned int share = ShareOf(data, size);
    CheckObject(*object, tree, share);
    if (share % 8 == 0)
        Require(AreEqual(Everything(*Decoded(data, size)), tree), "the same bytes give the same tree");
    else
        CheckLiveRoute(Bytes(data, data + size), share % 8 < 4, tree);
    return 0;
}
