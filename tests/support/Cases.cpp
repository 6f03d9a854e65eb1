#include "support/Cases.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace Cases {

namespace {

constexpr const char* NameMark = "== ";
constexpr std::size_t Width = 118;

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

// Statements, a line each.
std::string Parted(const std::string& statements)
{
    std::string lines = statements;
    for (std::size_t at = 0; (at = lines.find(" | ", at)) != std::string::npos;)
        lines.replace(at, 3, "\n");
    return lines + "\n";
}

// The blank in a line that is too long where it may go on in the next: behind a ";", or else any.
std::size_t PlaceToBreak(const std::string& text, std::size_t begin)
{
    const std::size_t value = text.rfind("; ", begin + Width - 1);
    if (value != std::string::npos && value > begin + Width / 2)
        return value + 1;
    std::size_t end = text.rfind(' ', begin + Width - 1);
    while (end != std::string::npos && (text[end - 1] == ' ' || text[end + 1] == ' '))
        end = text.rfind(' ', end - 1);
    return end == std::string::npos || end <= begin + 4 ? std::string::npos : end;
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

std::vector<Try> TriesOf(const std::string& text)
{
    std::vector<Try> tries(1);
    std::string always;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        Try* now = &tries.back();
        const bool goesOn = line.rfind("    ", 0) == 0;
        if (goesOn && !now->Outcomes.empty()) {
            now->Outcomes.back() += line.substr(3);
            continue;
        }
        const std::size_t arrow = line.rfind("-> ", 0) == 0 ? 0 : line.find(" -> ");
        std::string statements = line.substr(0, arrow);
        statements.erase(statements.find_last_not_of(' ') + 1);
        if (!statements.empty() && !now->Outcomes.empty()) {
            now = &tries.emplace_back();
            now->Given = always;
        }
        if (statements.rfind("with ", 0) == 0)
            always += Parted(statements = statements.substr(5));
        if (goesOn)
            now->Given.pop_back();
        now->Given += Parted(statements);
        now->Text += line.substr(0, arrow) + (arrow == std::string::npos ? "\n" : arrow == 0 ? "" : " ");
        if (arrow != std::string::npos)
            now->Outcomes.push_back(line.substr(arrow + (arrow == 0 ? 3 : 4)));
    }
    return tries;
}

std::string TextOf(const Try& each, const std::vector<std::string>& outcomes)
{
    std::string text = each.Text;
    for (const std::string& outcome : outcomes) {
        const std::size_t start = text.rfind('\n') + 1; // 0 where there is none
        if (start != text.size() && text.size() - start + 3 + outcome.size() > Width)
            text.replace(text.find_last_not_of(' ') + 1, std::string::npos, "\n");
        text += "-> " + outcome;
        for (std::size_t begin = text.rfind('\n') + 1, end = 0; text.size() - begin > Width;
             begin = end + 1) {
            end = PlaceToBreak(text, begin);
            if (end == std::string::npos)
                break;
            text.replace(end, 1, "\n    ");
        }
        text += "\n";
    }
    return text;
}

} // namespace Cases
