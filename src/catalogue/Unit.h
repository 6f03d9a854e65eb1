// What a number counts, or how it is to be read, as data: for whoever explains or converts it.

#pragma once

#include <cstddef>
#include <iterator>

namespace Protocol::SMBIOS::Catalogue {

enum class Unit : unsigned char {
    None, // a count, an identifier, or what the texts show
    Handle,
    Bits,
    Bytes,
    Kilobytes,
    Megabytes,
    PowerOfTwoMegabytes,
    MegabytesOrKilobytes,
    MegabytesOrGigabytes,
    KilobytesOr64Kilobytes,
    Megahertz,
    MegatransfersPerSecond,
    Nanoseconds,
    Minutes,
    YearsSince1980,
    Millivolts,
    TenthsOfMillivolt,
    Milliamperes,
    TenthsOfMilliampere,
    Watts,
    MilliwattHours,
    TenthsOfDegree,
    ThousandthsOfDegree,
    Percent,
    HundredthsOfPercent,
    RevolutionsPerMinute,
    RackUnits,
    OfRackType,
    HundredthsOfMillimetre,
    OfItsProbe,
    LowFourBits,
    DeviceAndFunction,
    BinaryCodedDecimal,
    Ascii,
};

/// A unit in words, as they stand behind what is counted: "size" "in megabytes".
struct UnitWords {
    Catalogue::Unit Unit;
    const char* Words;
};

inline constexpr UnitWords AllUnits[] = {
    {Unit::None, ""},
    {Unit::Handle, ""},
    {Unit::Bits, "in bits"},
    {Unit::Bytes, "in bytes"},
    {Unit::Kilobytes, "in kilobytes"},
    {Unit::Megabytes, "in megabytes"},
    {Unit::PowerOfTwoMegabytes, "as the n of 2 to the n megabytes"},
    {Unit::MegabytesOrKilobytes, "in megabytes, or with bit 15 set in kilobytes"},
    {Unit::MegabytesOrGigabytes, "in megabytes, or with bit 14 set in gigabytes"},
    {Unit::KilobytesOr64Kilobytes, "in kilobytes, or with the highest bit set in units of 64 kilobytes"},
    {Unit::Megahertz, "in MHz"},
    {Unit::MegatransfersPerSecond, "in megatransfers per second"},
    {Unit::Nanoseconds, "in nanoseconds"},
    {Unit::Minutes, "in minutes"},
    {Unit::YearsSince1980, "in years since 1980"},
    {Unit::Millivolts, "in millivolts"},
    {Unit::TenthsOfMillivolt, "in tenths of a millivolt"},
    {Unit::Milliamperes, "in milliamperes"},
    {Unit::TenthsOfMilliampere, "in tenths of a milliampere"},
    {Unit::Watts, "in watts"},
    {Unit::MilliwattHours, "in milliwatt-hours"},
    {Unit::TenthsOfDegree, "in tenths of a degree Celsius"},
    {Unit::ThousandthsOfDegree, "in thousandths of a degree Celsius"},
    {Unit::Percent, "in percent"},
    {Unit::HundredthsOfPercent, "in hundredths of a percent"},
    {Unit::RevolutionsPerMinute, "in revolutions per minute"},
    {Unit::RackUnits, "in rack units"},
    {Unit::OfRackType, "in the unit that `RackType` says"},
    {Unit::HundredthsOfMillimetre, "in hundredths of a millimetre"},
    {Unit::OfItsProbe, "in the unit of the probe or cooling device that the Type 35 structure joins with it"},
    {Unit::LowFourBits, "in bits 0 to 3"},
    {Unit::DeviceAndFunction, "in bits 3 to 7 and 0 to 2"},
    {Unit::BinaryCodedDecimal, "in binary coded decimal"},
    {Unit::Ascii, "in ASCII"},
};

constexpr bool UnitsStandInOrder()
{
    for (std::size_t i = 0; i < std::size(AllUnits); ++i) {
        if (AllUnits[i].Unit != static_cast<Unit>(i))
            return false;
    }
    return std::size(AllUnits) == static_cast<std::size_t>(Unit::Ascii) + 1;
}
static_assert(UnitsStandInOrder());

constexpr const char* WordsOf(Unit unit)
{
    return AllUnits[static_cast<std::size_t>(unit)].Words;
}

} // namespace Protocol::SMBIOS::Catalogue
