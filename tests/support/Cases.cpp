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

// A case whose lines "~ STATEMENTS  # NAME" are cases of their own, each behind what stands ahead of them:
// the outcome stands behind the last of those that have it.
std::string Replayed(const std::string& text, const Replay& replay)
{
    const std::size_t first = ("\n" + text).find("\n~ ");
    if (first == std::string::npos)
        return replay(text);
    std::string before = text.substr(0, first), got = before, last;
    for (std::size_t at = first; at != std::string::npos && at < text.size();) {
        const std::size_t end = text.find('\n', at) + 1;
        const std::string line = text.substr(at, end - at);
        const std::size_t wanted = text.find("\n->", at), next = text.find("\n~ ", wanted);
        const std::string given = before + line.substr(2, line.find("  # ") - 2);
        const std::string shown =
            wanted == std::string::npos
                ? ""
                : text.substr(wanted + 1, next == std::string::npos ? next : next - wanted);
        const std::string whole = replay(given + (given.back() == '\n' ? "" : "\n") + shown);
        const std::string outcome = whole.substr(("\n" + whole).find("\n->"));
        got += (last == outcome ? "" : last) + line;
        last = outcome;
        const std::size_t following = ("\n" + text).find("\n~ ", end);
        at = following;
    }
    return got + last;
}

int RunFile(const std::string& file, bool isUpdate, const Replay& replay)
{
    std::string text;
    int failures = 0;
    for (const auto& [name, wanted] : Read(file, text)) {
        const std::string got = Trimmed(Replayed(Trimmed(wanted), replay));
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
    std::vector<std::pair<std::string, std::string>> each;
    for (const auto& [name, text] : Read(file, preface)) {
        const std::size_t first = ("\n" + text).find("\n~ ");
        std::string line;
        std::istringstream lines(first == std::string::npos ? "" : text.substr(first));
        while (std::getline(lines, line)) {
            if (line.rfind("~ ", 0) == 0)
                each.emplace_back(name, text.substr(0, first) + line.substr(2, line.find("  # ") - 2));
        }
        if (first == std::string::npos)
            each.emplace_back(name, text);
    }
    return each;
}

std::string Given(const std::string& text)
{
    std::string given = text.substr(0, ("\n" + text).find("\n->"));
    for (std::size_t at = 0; (at = given.find(" | ", at)) != std::string::npos;)
        given.replace(at, 3, "\n");
    return given;
}

std::string AsGiven(const std::string& text)
{
    return text.substr(0, ("\n" + text).find("\n->"));
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
