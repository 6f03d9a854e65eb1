#include "support/Cases.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace Cases {

namespace {

constexpr const char* NameMark = "== ";

// The cases behind the lines that stand ahead of the first one, which tell of the file.
std::vector<std::pair<std::string, std::string>> Read(const std::string& file, std::string& preface)
{
    std::ifstream stream(file);
    if (!stream)
        throw std::runtime_error("cannot read " + file);
    std::vector<std::pair<std::string, std::string>> cases;
    for (std::string line; std::getline(stream, line);) {
        if (line.rfind(NameMark, 0) == 0)
            cases.emplace_back(line.substr(3), "");
        else
            (cases.empty() ? preface : cases.back().second) += line + "\n";
    }
    return cases;
}

// Without empty lines at its end.
std::string Trimmed(const std::string& text)
{
    const std::size_t last = text.find_last_not_of('\n');
    return last == std::string::npos ? "" : text.substr(0, last + 1) + "\n";
}

// The first line in which the texts differ.
void PrintDifference(const std::string& wanted, const std::string& got)
{
    std::istringstream left(wanted), right(got);
    std::string one = "(no line)", other = one, before;
    bool isLeft = true, isRight = true;
    do {
        before = one;
        isLeft = static_cast<bool>(std::getline(left, one));
        isRight = static_cast<bool>(std::getline(right, other));
    } while (isLeft && isRight && one == other);
    std::cerr << "  behind  " << before << "\n  wanted  " << (isLeft ? one : "(the end)") << "\n  got     "
              << (isRight ? other : "(the end)") << '\n';
}

int RunFile(const std::string& file, bool isUpdate, const Replay& replay)
{
    std::string text;
    int failures = 0;
    for (const auto& [name, wanted] : Read(file, text)) {
        const std::string got = Trimmed(replay(Trimmed(wanted)));
        text += NameMark + name + "\n" + got + "\n";
        if (isUpdate || got == Trimmed(wanted))
            continue;
        ++failures;
        std::cerr << file << ": " << name << '\n';
        PrintDifference(Trimmed(wanted), got);
    }
    if (!isUpdate)
        return failures == 0 ? 0 : 1;
    text.pop_back();
    std::ofstream(file) << text;
    return 0;
}

} // namespace

int Run(int count, char** arguments, const Replay& replay)
{
    int status = 0;
    const bool isUpdate = count > 1 && std::string(arguments[1]) == "--update";
    for (int i = isUpdate ? 2 : 1; i < count; ++i)
        status |= RunFile(arguments[i], isUpdate, replay);
    return status;
}

std::vector<std::pair<std::string, std::string>> Of(const std::string& file)
{
    std::string preface;
    return Read(file, preface);
}

std::string Given(const std::string& text)
{
    return text.substr(0, text.find("->\n"));
}

std::vector<std::string> TakeLines(std::string& text, const std::string& word)
{
    std::istringstream lines(text);
    std::vector<std::string> taken;
    text.clear();
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(word, 0) == 0)
            taken.push_back(line.substr(std::min(line.size(), word.size() + 1)));
        else
            text += line + "\n";
    }
    return taken;
}

} // namespace Cases
