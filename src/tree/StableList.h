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

    Element& operator[](std::size_t number) const { return Pages[number / PageLength][number % PageLength]; }

    Element& Append(const Element& element)
    {
        if (Count == Pages.size() * PageLength)
            AddBlock();
        Element& place = (*this)[Count];
        place = element;
        ++Count;
        return place;
    }

    /// Releases all elements.
    void Clear()
    {
        Blocks = decltype(Blocks)();
        Pages = decltype(Pages)();
        Count = 0;
    }

private:
    static constexpr std::size_t PageLength = 64;
    static constexpr std::size_t FewPages = 64; ///< up to here one is taken at a time, then several
    static constexpr std::size_t SeveralPages = 16;

    void AddBlock()
    {
        const std::size_t count = Pages.size() < FewPages ? 1 : SeveralPages;
        Blocks.push_back(std::unique_ptr<Element[]>(new Element[count * PageLength]));
        for (std::size_t i = 0; i < count; ++i)
            Pages.push_back(Blocks.back().get() + i * PageLength);
    }

    std::vector<std::unique_ptr<Element[]>> Blocks;
    std::vector<Element*> Pages; ///< of the blocks
    std::size_t Count = 0;
};

} // namespace Protocol::SMBIOS
