#include "Holder.h"

#include <csignal>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

struct Holder::Process {
    pid_t Id = -1;
    int Input = -1; ///< its standard input ends when this is closed
};

Holder::Holder(const std::string& name) : Other(std::make_unique<Process>())
{
    int input[2];
    int output[2];
    if (pipe(input) != 0 || pipe(output) != 0)
        throw std::runtime_error("no pipe");
    Other->Id = fork();
    if (Other->Id == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        for (const int end : {input[0], input[1], output[0], output[1]})
            close(end);
        execl("/proc/self/exe", "tests-lock", "hold", name.c_str(), nullptr);
        _exit(127);
    }
    Other->Input = input[1];
    close(input[0]);
    close(output[1]);
    char answer = 0;
    const ssize_t count = read(output[0], &answer, 1);
    close(output[0]);
    if (count != 1)
        throw std::runtime_error("the other process did not take the lock");
}

Holder::~Holder()
{
    if (Other->Id > 0)
        Kill();
    close(Other->Input);
}

void Holder::GiveBack()
{
    close(Other->Input);
    Other->Input = -1;
    waitpid(Other->Id, nullptr, 0);
    Other->Id = -1;
}

void Holder::Kill()
{
    kill(Other->Id, SIGKILL);
    waitpid(Other->Id, nullptr, 0);
    Other->Id = -1;
}
