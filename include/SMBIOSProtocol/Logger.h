/// \file
/// The log. The library prints nothing by itself: a line goes to the sink that the program sets, or nowhere.

#pragma once

#include "SMBIOSProtocol/Export.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace LOGGER {

/// One line of the log, valid during the call of the sink.
struct LogLine {
    int Level;                  ///< 2 for every line of the library
    const std::string& File;    ///< name of the part that logs
    const char* Function;       ///< its function, with namespaces and class
    int Line;                   ///< the line in that function's source
    const std::string& Message; ///< the text, without a line break at its end
};

/// The process-wide logger. All operations may be called from any thread.
class SMBIOSPROTOCOL_API Logger {
public:
    /// Takes one line.
    using Sink = std::function<void(const LogLine&)>;

    /// The logger; always the same one.
    static Logger& CreateInstance();

    /// Sets where lines go from now on; an empty function sends them nowhere, as at the start. The sink is
    /// called on the thread that logs, must not throw, and may be called from several threads at once. Lines
    /// come from inside of SMBIOSProtocolImpl::CreateInstance, too: a sink must not call that operation,
    /// which would wait for itself.
    void SetSink(Sink sink);

    /// Logs one line, formatted as printf does.
    void Log(int level, std::string file, const char* function, int line, const char* format, ...);

    /// Puts `format`, expanded with `arguments` as printf does, into `out`.
    template <typename... Arguments>
    void CreateMessage(std::string& out, const std::string& format, Arguments... arguments)
    {
        Expand(out, format.c_str(), arguments...);
    }

    /// Whether each taking of the named lock is logged. False at the start.
    std::atomic<bool> TraceLocks{false};

    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

private:
    Logger() = default;
    ~Logger() = default;

    static void Expand(std::string& out, const char* format, ...);

    std::atomic<bool> HasSink{false};
    std::mutex SinkMutex;
    std::shared_ptr<const Sink> CurrentSink;
};

} // namespace LOGGER
