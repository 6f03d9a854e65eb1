// Replays the sessions of this folder, which read as a shell has them: "$ COMMAND", the lines "> ..." that go
// on with it, all that it prints, and "[STATUS]" at the end where that is not 0; a short line stands behind
// its command and "=>". Each session runs in a folder of its own, which has "image", that of machine.table.
// make-image makes further ones, of a text as samples/TableText.h has it; $TABLES is this folder, $SOURCE the
// project's.

#include "support/Cases.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* Script = ".command";
constexpr const char* Behind = "  => ";

// What the command prints on both streams, and its status.
std::string Ran(const std::string& command)
{
    std::ofstream(Script) << command;
    std::FILE* const pipe = popen("exec sh .command 2>&1 </dev/null", "r");
    std::string output;
    std::array<char, 4096> buffer{};
    for (std::size_t size = 0; (size = std::fread(buffer.data(), 1, buffer.size(), pipe)) != 0;)
        output.append(buffer.data(), size);
    const int status = pclose(pipe);
    if (!output.empty() && output.back() != '\n')
        output += "(no line end)\n";
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    if (code == 0)
        return output;
    output.insert(output.size() - (output.empty() ? 0 : 1),
                  (output.empty() ? "[" : " [") + std::to_string(code) + "]");
    return output.back() == '\n' ? output : output + "\n";
}

// A command as it stands in a session, and without its prompts.
struct Command {
    std::string Text, Plain;
};

std::vector<Command> Commands(const std::string& session)
{
    std::vector<Command> commands;
    std::istringstream lines(session);
    bool goesOn = false; // an output can have lines with ">" too, but not right behind the command
    for (std::string line; std::getline(lines, line);) {
        const bool begins = line.rfind("$ ", 0) == 0;
        goesOn = begins || (goesOn && line.rfind('>', 0) == 0);
        if (begins)
            commands.emplace_back();
        if (!goesOn)
            continue;
        if (begins)
            line.resize(std::min(line.size(), line.find(Behind)));
        commands.back().Text += line + "\n";
        commands.back().Plain += line.substr(std::min<std::size_t>(line.size(), 2)) + "\n";
    }
    return commands;
}

// A short line stands behind its command.
std::string Shown(const std::string& command, const std::string& output)
{
    constexpr std::size_t Width = 118;
    const bool isShort = command.find('\n') == command.size() - 1 && output.find('\n') == output.size() - 1 &&
                         command.size() + output.size() + 3 <= Width && !output.empty();
    return isShort ? command.substr(0, command.size() - 1) + Behind + output : command + output;
}

// script(1) asks the system for one; a bare chroot has none.
bool HasTerminalDevice()
{
    const int device = posix_openpt(O_RDWR | O_NOCTTY);
    return device != -1 && close(device) == 0;
}

std::string Replayed(const std::string& session)
{
    if (session.find("$ script ") != std::string::npos && !HasTerminalDevice()) {
        std::cerr << "skipped: there is no terminal device\n";
        return session;
    }
    const fs::path before = fs::current_path();
    const fs::path folder = fs::temp_directory_path() / ("smbios-tree-" + std::to_string(std::rand()));
    fs::create_directories(folder);
    fs::current_path(folder);
    std::string text = Ran("make-image $TABLES/machine.table >image");
    for (const auto& [command, plain] : Commands(session))
        text += Shown(command, Ran(plain));
    fs::current_path(before);
    fs::remove_all(folder);
    return text;
}

} // namespace

int main(int count, char* arguments[])
{
    std::srand(static_cast<unsigned int>(getpid()));
    const std::string path = std::string(TOOL_FOLDER ":" SAMPLES_FOLDER ":") + std::getenv("PATH");
    for (const auto& [name, value] : {std::pair<const char*, std::string>("PATH", path),
                                      {"TABLES", TABLES},
                                      {"SOURCE", SOURCE},
                                      {"LC_ALL", "C"},
                                      {"TERM", "xterm"}})
        setenv(name, value.c_str(), 1);
    unsetenv("NO_COLOR");
    return Cases::Run(count, arguments, Replayed);
}
