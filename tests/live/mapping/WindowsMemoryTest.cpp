// Physical memory on Windows, which gives programs none.

#include "SMBIOSProtocol/ResultStatus.h"
#include "services/MemMapDriverImpl.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr unsigned long ScanAddress = 0xF0000;
constexpr unsigned int ScanLength = 65534;

TEST(NoMemory, IsStoodInForInTheSearchedRangeAlone)
{
    const struct {
        unsigned long Address;
        unsigned int Length;
        bool IsThere;
    } rows[] = {
        {ScanAddress, ScanLength, true}, {ScanAddress, ScanLength - 1, false},
        {ScanAddress, 256, false},       {ScanAddress + 2, ScanLength, false},
        {0xFFFFD003, 512, false},        {0xFFFFD003, 0, true},
    };
    OS::Driver::MemMapDriverImpl memory;
    for (const auto& [address, length, isThere] : rows) {
        SCOPED_TRACE(std::to_string(address) + " " + std::to_string(length));
        std::string reason;
        EXPECT_EQ(memory.Offers(address, length, reason), isThere);
        EXPECT_EQ(reason, isThere ? "" : "Windows gives programs no physical memory");
        OS::Driver::MappingOwner owner;
        try {
            memory.Map(address, length, &owner);
            EXPECT_TRUE(isThere);
            const auto* const bytes = static_cast<unsigned char*>(owner->Pointer);
            EXPECT_EQ(std::count(bytes, bytes + length, 0xFF), length);
        } catch (const ResultStatus& failure) {
            EXPECT_FALSE(isThere);
            EXPECT_EQ(failure.Code(), RESULT_MAPPING_UNAVAILABLE);
        }
    }
}

} // namespace
