#include "Types.h"

#include <SMBIOSProtocol/StructureTypes.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace SmbiosTree {

namespace {

using Protocol::SMBIOS::StructureType;
using Protocol::SMBIOS::StructureTypes;

constexpr unsigned int FirstOemType = 128;
constexpr unsigned int LargestType = 255;

template <typename Matches>
const StructureType* Find(Matches matches)
{
    const auto* const type = std::find_if(std::begin(StructureTypes), std::end(StructureTypes), matches);
    return type == std::end(StructureTypes) ? nullptr : type;
}

} // namespace

std::string_view TitleOfType(unsigned int type)
{
    const StructureType* const found =
        Find([&](const StructureType& candidate) { return candidate.Number == type; });
    if (found != nullptr)
        return found->Title;
    return type >= FirstOemType ? "OEM-specific" : std::string_view();
}

std::optional<unsigned int> TypeOf(const std::string& text)
{
    const StructureType* const found =
        Find([&](const StructureType& candidate) { return candidate.Word == text; });
    if (found != nullptr)
        return found->Number;
    const bool isNumber =
        !text.empty() && text.size() <= 3 && text.find_first_not_of("0123456789") == std::string::npos;
    const unsigned long number = isNumber ? std::strtoul(text.c_str(), nullptr, 10) : LargestType + 1;
    if (number > LargestType)
        return std::nullopt;
    return static_cast<unsigned int>(number);
}

std::string WordsOfTypes()
{
    std::string words;
    for (const StructureType& type : StructureTypes)
        words.append(words.empty() ? "" : ", ")
            .append(type.Word)
            .append(" ")
            .append(std::to_string(type.Number));
    return words;
}

std::string LinesOfWords()
{
    std::string lines;
    for (const StructureType& type : StructureTypes)
        lines.append(type.Word).append("\t").append(type.Title).append("\n");
    return lines;
}

std::string LinesOfPaths()
{
    std::string lines;
    for (const StructureType& type : StructureTypes)
        lines.append("/SMBIOS/Type")
            .append(std::to_string(type.Number))
            .append("\t")
            .append(type.Title)
            .append("\n");
    return lines;
}

} // namespace SmbiosTree
