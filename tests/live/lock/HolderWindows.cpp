#include "Holder.h"

#include <stdexcept>
#include <windows.h>

struct Holder::Process {
    HANDLE Id = nullptr;
    HANDLE Input = nullptr; ///< its standard input ends when this is closed
};

Holder::Holder(const std::string& name) : Other(std::make_unique<Process>())
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE input = nullptr;
    HANDLE answers = nullptr;
    HANDLE output = nullptr;
    if (!CreatePipe(&input, &Other->Input, &inherited, 0) || !CreatePipe(&answers, &output, &inherited, 0))
        throw std::runtime_error("no pipe");
    SetHandleInformation(Other->Input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(answers, HANDLE_FLAG_INHERIT, 0);

    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command = std::string("\"") + program + "\" hold " + name;
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input;
    start.hStdOutput = output;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process = {};
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &start, &process);
    CloseHandle(input);
    CloseHandle(output);
    if (started) {
        CloseHandle(process.hThread);
        Other->Id = process.hProcess;
    }
    char answer = 0;
    DWORD count = 0;
    ReadFile(answers, &answer, 1, &count, nullptr);
    CloseHandle(answers);
    if (count != 1)
        throw std::runtime_error("the other process did not take the lock");
}

Holder::~Holder()
{
    if (Other->Id != nullptr)
        Kill();
    if (Other->Input != nullptr)
        CloseHandle(Other->Input);
}

void Holder::GiveBack()
{
    CloseHandle(Other->Input);
    Other->Input = nullptr;
    WaitForSingleObject(Other->Id, INFINITE);
    CloseHandle(Other->Id);
    Other->Id = nullptr;
}

void Holder::Kill()
{
    TerminateProcess(Other->Id, 1);
    WaitForSingleObject(Other->Id, INFINITE);
    CloseHandle(Other->Id);
    Other->Id = nullptr;
}
