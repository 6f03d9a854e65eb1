// The way of a report to standard output.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace SmbiosTree {

/// Takes text piece by piece, and writes it when there is much of it. Whoever appends to a file with others
/// finds each report of up to `Capacity` bytes in one piece there: Finish() ends a report.
class Output {
public:
    static constexpr std::size_t Capacity = 4U << 20;

    Output() = default;
    /// Writes nothing, but fails where a report is larger than `limit` bytes.
    explicit Output(std::uint64_t limit) : Limit(limit) {}

    /// Throws OutputFailure, as does all that writes, where standard output cannot be written, and Failure
    /// behind a limit.
    void Append(std::string_view text)
    {
        if (text.size() > Capacity - Used)
            return AppendAcross(text);
        Used += text.copy(Buffer.get() + Used, text.size());
    }

    void Append(char character)
    {
        if (Used == Capacity)
            Flush();
        Buffer[Used++] = character;
    }

    void AppendBlanks(std::size_t count);

    /// Writes what is still here: the report is complete.
    void Finish();

    /// Takes the report back. Gives false where a part of it is written.
    bool Retract();

    /// All that was written.
    std::uint64_t Total() const { return Written; }

private:
    void AppendAcross(std::string_view text);
    void Flush();

    std::unique_ptr<char[]> Buffer{new char[Capacity]}; // not cleared: what is never used costs no memory
    std::size_t Used = 0;
    std::uint64_t Written = 0;
    std::uint64_t WrittenBefore = 0; ///< by the reports before this one
    std::optional<std::uint64_t> Limit;
};

} // namespace SmbiosTree
