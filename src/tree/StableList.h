// A list that grows at its end and whose elements stay where they are. It takes memory for many elements at a
// time, for more behind the first few thousand, and finds one by its number without a division.

#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

namespace Protocol::SMBIOS {

template <typename Element>
class StableList {
    static_assert(std::is_trivially_copyable_v<Element>);

public:
    std::size_t Size() const { return Count; }

    Element& operator[](std::size_t number) const
    {
        if (number < FirstCount)
            return Blocks[number / ShortBlock][number % ShortBlock];
        const std::size_t further = number - FirstCount;
        return Blocks[FirstCount / ShortBlock + further / LongBlock][further % LongBlock];
    }

    Element& Append(const Element& element)
    {
        if (Count == Capacity) {
            const std::size_t length = Count < FirstCount ? ShortBlock : LongBlock;
            Blocks.push_back(std::unique_ptr<Element[]>(new Element[length]));
            Capacity += length;
        }
        Element& place = (*this)[Count];
        place = element;
        ++Count;
        return place;
    }

    /// Releases all elements.
    void Clear()
    {
        Blocks = decltype(Blocks)();
        Capacity = 0;
        Count = 0;
    }

private:
    static constexpr std::size_t ShortBlock = 64;
    static constexpr std::size_t FirstCount = 4096; ///< of elements that are in short blocks
    static constexpr std::size_t LongBlock = 1024;

    std::vector<std::unique_ptr<Element[]>> Blocks;
    std::size_t Capacity = 0;
    std::size_t Count = 0;
};

} // namespace Protocol::SMBIOS
