// Changes an input by its structures: one more or less, another length, another handle. What libFuzzer does
// by itself, to bytes, takes turns with that. Properties.h says what an input is.

#include "samples/Image.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <random>
#include <string_view>

extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t largest);

namespace {

using Images::Bytes;

constexpr std::size_t HeaderSize = 4, LengthOffset = 1, HandleOffset = 2;

/// Types that name others by handle, or are named, and the places of such names.
constexpr unsigned char LinkedTypes[] = {4, 7, 16, 17, 18, 132};
constexpr struct {
    unsigned char Type;
    unsigned char Offset;
} References[] = {{4, 26}, {4, 28}, {4, 30}, {16, 11}, {17, 4}, {17, 6}};

class Mutator {
public:
    Mutator(Bytes bytes, unsigned int seed) : Random(seed), Rest(std::move(bytes))
    {
        Front = Taken(FrontSize());
        constexpr unsigned char End = 127;
        const unsigned char gap[] = {0, 0};
        while (Rest.size() >= HeaderSize && Rest[0] != End && Rest[LengthOffset] <= Rest.size()) {
            const auto strings = std::search(Rest.begin() + Rest[LengthOffset], Rest.end(), gap, gap + 2);
            const auto size = static_cast<std::size_t>(strings - Rest.begin()) + 2;
            if (size > Rest.size() || size < HeaderSize)
                break;
            Structures.push_back(Taken(size));
        }
    }

    Bytes Changed()
    {
        for (std::size_t left = 1 + Below(3); left > 0; --left)
            ChangeOne();
        Bytes table;
        for (const Bytes& structure : Structures)
            table = Images::Join(std::move(table), structure);
        table = Images::Join(std::move(table), Rest);
        if (Front.size() == BlockFront && Below(4) != 0)
            SetWord(Front, BlockLength, table.size());
        Bytes input = Images::Join(Front, table);
        if (Below(4) != 0)
            Balance(input);
        return input;
    }

private:
    static constexpr std::size_t BlockFront = 9, BlockLength = 5, DumpFront = 33, SegmentFront = 35;

    // What a route has ahead of the table.
    std::size_t FrontSize() const
    {
        const bool isDump = Rest.size() > 4 && std::equal(&Rest[1], &Rest[4], "_SM");
        const std::size_t sizes[] = {1, isDump ? DumpFront : 1, BlockFront, SegmentFront};
        return sizes[Rest[0] & 3];
    }

    Bytes Taken(std::size_t size)
    {
        const auto end = Rest.begin() + static_cast<std::ptrdiff_t>(std::min(size, Rest.size()));
        Bytes taken(Rest.begin(), end);
        Rest.erase(Rest.begin(), end);
        return taken;
    }

    std::size_t Below(std::size_t end) { return Random() / 7 % end; }
    Bytes& Any() { return Structures[Below(Structures.size())]; }

    static void SetWord(Bytes& bytes, std::size_t offset, std::size_t value)
    {
        for (std::size_t i = offset; i < offset + 2 && i < bytes.size(); ++i, value >>= 8)
            bytes[i] = static_cast<unsigned char>(value);
    }

    // The place of a handle: of the structure's own, of one that it may name, or anywhere.
    std::size_t HandleIn(const Bytes& structure)
    {
        const auto& reference = References[Below(std::size(References))];
        if (reference.Type == structure[0] && reference.Offset + 2U <= structure.size())
            return reference.Offset;
        return Below(2) == 0 ? HandleOffset : Below(structure.size() - 1);
    }

    void ChangeOne()
    {
        if (Structures.empty())
            Structures.push_back({0, HeaderSize, 1, 0, 0, 0});
        Bytes& one = Any();
        const Bytes& other = Any();
        const auto place = Structures.begin() + static_cast<std::ptrdiff_t>(Below(Structures.size() + 1));
        switch (Below(8)) {
        case 0:
            Structures.insert(place, Bytes(one));
            break;
        case 1:
            one[0] = LinkedTypes[Below(std::size(LinkedTypes))];
            break;
        case 2:
            Structures.erase(Structures.begin() + (&one - Structures.data()));
            break;
        case 3:
            one[LengthOffset] = static_cast<unsigned char>(one[LengthOffset] + Below(9) - 4);
            break;
        case 4:
            std::swap_ranges(one.data() + HandleOffset, one.data() + HeaderSize, Any().data() + HandleOffset);
            break;
        default:
            SetWord(one, HandleIn(one), other[HandleOffset] | other[HandleOffset + 1] << 8);
        }
    }

    // Has the first entry point's bytes sum to 0 again.
    static void Balance(Bytes& input)
    {
        constexpr std::string_view Anchor = "_SM";
        const auto start = std::search(input.begin(), input.end(), Anchor.begin(), Anchor.end());
        if (input.end() - start < 8)
            return;
        const std::ptrdiff_t checksum = start[3] == '3' ? 5 : 4, length = start[checksum + 1];
        if (input.end() - start >= length)
            start[checksum] =
                static_cast<unsigned char>(start[checksum] - std::accumulate(start, start + length, 0U));
    }

    std::minstd_rand Random;
    Bytes Front, Rest; ///< ahead of the structures and behind them
    std::vector<Bytes> Structures;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(unsigned char* data, std::size_t size, std::size_t largest,
                                               unsigned int seed)
{
    if (size == 0 || seed % 2 == 0)
        return LLVMFuzzerMutate(data, size, largest);
    Bytes changed = Mutator({data, data + size}, seed).Changed();
    changed.resize(std::min(changed.size(), largest));
    std::copy(changed.begin(), changed.end(), data);
    return changed.size();
}
