#include "SMBIOSProtocol/ResultStatus.h"

#include <utility>

struct ResultStatus::Details {
    unsigned short Code;
    std::string Message;
    std::string Source;
    _XCOMMAND Command;
};

ResultStatus::ResultStatus(unsigned short code, std::string message, std::string source, _XCOMMAND command)
    : Shared(std::make_shared<const Details>(Details{code, std::move(message), std::move(source), command}))
{
}

ResultStatus::ResultStatus(const ResultStatus&) noexcept = default;
ResultStatus& ResultStatus::operator=(const ResultStatus&) noexcept = default;
ResultStatus::~ResultStatus() = default;

unsigned short ResultStatus::Code() const noexcept
{
    return Shared->Code;
}

const std::string& ResultStatus::Message() const noexcept
{
    return Shared->Message;
}

const std::string& ResultStatus::Source() const noexcept
{
    return Shared->Source;
}

_XCOMMAND ResultStatus::Command() const noexcept
{
    return Shared->Command;
}

const char* ResultStatus::what() const noexcept
{
    return Shared->Message.c_str();
}
