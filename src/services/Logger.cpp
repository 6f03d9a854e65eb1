#include "SMBIOSProtocol/Logger.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

namespace LOGGER {

namespace {

std::string Formatted(const char* format, std::va_list arguments)
{
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0)
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

} // namespace

Logger& Logger::CreateInstance()
{
    static Logger logger;
    return logger;
}

void Logger::SetSink(Sink sink)
{
    auto replaced = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
    const std::lock_guard<std::mutex> guard(SinkMutex);
    HasSink = replaced != nullptr;
    CurrentSink.swap(replaced); // the former goes once the guard has gone: its captures may log
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the log service takes the file by value
void Logger::Log(int level, std::string file, const char* function, int line, const char* format, ...)
{
    if (!HasSink)
        return;
    std::shared_ptr<const Sink> sink;
    {
        const std::lock_guard<std::mutex> guard(SinkMutex);
        sink = CurrentSink;
    }
    if (sink == nullptr)
        return;

    std::va_list arguments;
    va_start(arguments, format);
    const std::string message = Formatted(format, arguments);
    va_end(arguments);
    (*sink)({level, file, function, line, message});
}

void Logger::Expand(std::string& out, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    out = Formatted(format, arguments);
    va_end(arguments);
}

} // namespace LOGGER
