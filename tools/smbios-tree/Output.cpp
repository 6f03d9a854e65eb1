#include "Output.h"

#include "Failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace SmbiosTree {

void Output::AppendBlanks(std::size_t count)
{
    constexpr std::string_view Blanks = "                                ";
    for (; count > Blanks.size(); count -= Blanks.size())
        Append(Blanks);
    Append(Blanks.substr(0, count));
}

void Output::AppendAcross(std::string_view text)
{
    while (!text.empty()) {
        if (Used == Capacity)
            Flush();
        const std::size_t size = text.copy(Buffer.get() + Used, Capacity - Used);
        Used += size;
        text.remove_prefix(size);
    }
}

void Output::Finish()
{
    Flush();
    WrittenBefore = Written;
}

bool Output::Retract()
{
    Used = 0;
    return Written == WrittenBefore;
}

void Output::Flush()
{
    Written += Used;
    if (Limit) {
        Used = 0;
        if (Written > *Limit)
            throw Failure(Kind::TooLarge, "its output would be larger than " + std::to_string(*Limit) +
                                              " bytes; raise --limit, or show a part of it with --path");
        return;
    }
    // A full disk may show only when the last bytes leave the stream.
    errno = 0;
    const bool isWritten = std::fwrite(Buffer.get(), 1, Used, stdout) == Used && std::fflush(stdout) == 0;
    if (!isWritten)
        throw OutputFailure((errno != 0 ? std::strerror(errno) : std::string("it cannot be written")) +
                            "; the output is not complete");
    Used = 0;
}

} // namespace SmbiosTree
