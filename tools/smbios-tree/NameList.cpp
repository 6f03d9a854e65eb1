#include "NameList.h"

#include "Console.h"
#include "Failure.h"
#include "Input.h"

#include <cerrno>
#include <system_error>

namespace SmbiosTree {

namespace {

[[noreturn]] void RaiseUnreadable()
{
    throw Failure(Kind::Unreadable,
                  std::generic_category().message(errno) + "; give a file with the names of the inputs");
}

} // namespace

NameList::NameList(const std::string& file, char end)
    : Stream(file == "-" ? StandardInput() : Console::OpenToRead(file)), End(end)
{
    if (Stream == nullptr)
        RaiseUnreadable();
}

NameList::~NameList()
{
    if (Stream != stdin)
        std::fclose(Stream);
}

bool NameList::Next(std::string& name)
{
    name.clear();
    errno = 0;
    for (int byte = std::getc(Stream); byte != EOF; byte = std::getc(Stream)) {
        if (byte != End)
            name += static_cast<char>(byte);
        else if (!name.empty())
            return true;
    }
    if (std::ferror(Stream) != 0)
        RaiseUnreadable();
    return !name.empty();
}

} // namespace SmbiosTree
