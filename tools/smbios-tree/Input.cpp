#include "Input.h"

#include "Failure.h"

#include <SMBIOSProtocol/ResultStatus.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

namespace SmbiosTree {

namespace {

std::vector<unsigned char> ReadStandardInput()
{
    std::vector<unsigned char> bytes;
    unsigned char buffer[16384];
    std::FILE* const stream = StandardInput();
    errno = 0;
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, stream)) {
        bytes.insert(bytes.end(), buffer, buffer + count);
        if (bytes.size() > TableImage::MaxFileSize)
            throw Failure(Kind::TooLarge, "more than 16 MiB; give a table image, a dump or a folder");
    }
    if (std::ferror(stream) != 0)
        throw Failure(Kind::Unreadable, std::generic_category().message(errno) +
                                            "; give a file or a pipe that can be read to its end");
    return bytes;
}

} // namespace

std::string NameOf(const Input& input)
{
    if (!input)
        return "this machine";
    return *input == "-" ? "standard input" : *input;
}

std::FILE* StandardInput()
{
    static bool isTaken = false;
    if (isTaken)
        throw Failure(Kind::Unreadable,
                      "it is read already, as an input or as the list of --inputs; name it once");
    isTaken = true;
    return stdin;
}

TableImage Read(const Input& input)
{
    try {
        if (!input)
            return TableImage::OfThisMachine();
        return *input == "-" ? TableImage::FromBytes(ReadStandardInput())
                             : TableImage::FromFile(std::filesystem::u8path(*input));
    } catch (const ResultStatus& status) {
        throw input ? InputFailure(status) : MachineFailure(status);
    }
}

void Save(const TableImage& table, const std::string& file)
{
    try {
        table.Save(std::filesystem::u8path(file));
    } catch (const ResultStatus& status) {
        throw SaveFailure(status.Message());
    }
}

} // namespace SmbiosTree
