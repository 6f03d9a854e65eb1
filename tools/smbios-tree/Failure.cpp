#include "Failure.h"

namespace SmbiosTree {

namespace {

struct Meaning {
    ResultCode Code;
    const char* Kind;
};

constexpr Meaning Meanings[] = {
    {RESULT_NO_TABLE, Kind::NoEntryPoint},
    {RESULT_BAD_CHECKSUM, Kind::Damaged},
    {RESULT_UNSUPPORTED_VERSION, Kind::UnsupportedVersion},
    {RESULT_FILE_MISSING, Kind::Unreadable},
    {RESULT_FILE_UNREADABLE, Kind::Unreadable},
    {RESULT_FOLDER_INCOMPLETE, Kind::Unreadable},
    {RESULT_EMPTY, Kind::Empty},
    {RESULT_CUT_OFF, Kind::Truncated},
    {RESULT_TOO_LARGE, Kind::TooLarge},
};

} // namespace

Failure InputFailure(const ResultStatus& status)
{
    for (const Meaning& meaning : Meanings) {
        if (meaning.Code == status.Code())
            return {meaning.Kind, status.Message()};
    }
    return {Kind::Unreadable, status.Message()};
}

Failure MachineFailure(const ResultStatus& status)
{
    return {Kind::MachineUnreadable, status.Message()};
}

Failure OutOfMemory()
{
    return {Kind::OutOfMemory, "there is not enough memory for the tree; free some and try again"};
}

} // namespace SmbiosTree
