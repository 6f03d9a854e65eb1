// A list that grows at its end and whose elements stay where they are.

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
        return Blocks[number / BlockLength][number % BlockLength];
    }

    Element& Append(const Element& element)
    {
        if (Count % BlockLength == 0)
            Blocks.push_back(std::unique_ptr<Element[]>(new Element[BlockLength]));
        Element& place = (*this)[Count];
        place = element;
        ++Count;
        return place;
    }

    /// Releases all elements.
    void Clear()
    {
        Blocks = decltype(Blocks)();
        Count = 0;
    }

private:
    static constexpr std::size_t BlockLength = 128;

    std::vector<std::unique_ptr<Element[]>> Blocks;
    std::size_t Count = 0;
};

} // namespace Protocol::SMBIOS
