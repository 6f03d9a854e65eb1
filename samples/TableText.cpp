#include "samples/TableText.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

namespace Images {

namespace {

/// Reads a statement from the left to the right.
class Reader {
public:
    Reader(std::string line, std::size_t copy, std::size_t copies)
        : Line(std::move(line)), Copy(copy), Copies(copies)
    {
    }

    bool IsAtEnd()
    {
        At = std::min(Line.find_first_not_of(' ', At), Line.size());
        return At == Line.size();
    }

    bool Take(const std::string& word)
    {
        const bool stands = Line.compare(At, word.size(), word) == 0;
        At += stands ? word.size() : 0;
        return stands;
    }

    void Expect(const std::string& word)
    {
        if (!Take(word))
            throw std::invalid_argument("no " + word);
    }

    std::uint64_t Number()
    {
        if (Take("i"))
            return (Copy - 1 + (Take("+") ? Number() : 0)) % Copies + 1;
        return Number(Take("0x") ? 16 : 10);
    }

    unsigned char Byte() { return static_cast<unsigned char>(Number()); }

    std::uint64_t Number(int base)
    {
        std::size_t size = 0;
        const std::uint64_t number = std::stoull(Line.substr(At), &size, base);
        At += size;
        return number;
    }

    /// The number in front of `sign`, where both stand here; else 1.
    std::size_t Times(char sign)
    {
        const std::size_t end = Line.find_first_not_of("0123456789", At);
        if (end == At || end == std::string::npos || Line[end] != sign)
            return 1;
        const std::size_t times = Number(10);
        ++At;
        return times;
    }

    /// Texts with + between them, the first of which is repeated so often.
    std::string Text(std::size_t times)
    {
        std::string text;
        do {
            Expect("\"");
            std::string part;
            while (!Take("\""))
                part += Character();
            for (; times > 0; --times)
                text += part;
            times = Take("+") ? Times('*') : 0;
        } while (times > 0);
        return text;
    }

    bool IsAtText() const { return At < Line.size() && Line[At] == '"'; }

private:
    char Character()
    {
        if (Take("\\n"))
            return '\n';
        if (Take("\\t"))
            return '\t';
        if (Take("\\x")) {
            At += 2;
            return static_cast<char>(std::stoi(Line.substr(At - 2, 2), nullptr, 16));
        }
        Take("\\");
        return Line.at(At++);
    }

    std::string Line;
    std::size_t Copy, Copies;
    std::size_t At = 0;
};

void AddField(Structure& structure, Reader& line)
{
    if (line.Take("@")) {
        structure.FillUpTo(line.Number());
        return;
    }
    if (line.Take("length=")) {
        structure.ClaimLength(line.Byte());
        return;
    }
    if (line.Take("+")) {
        structure.MoreText(line.Text(line.Times('*')));
        return;
    }
    std::size_t times = line.Times('*');
    if (line.IsAtText()) {
        structure.Add(line.Text(times));
        return;
    }
    const std::size_t width = line.Take("w:") ? 2 : line.Take("d:") ? 4 : line.Take("q:") ? 8 : 1;
    const std::uint64_t value = line.Number();
    for (; times > 0; --times)
        structure.Number(value, width);
}

Bytes ReadStructure(Reader& line)
{
    const unsigned char type = line.Byte();
    line.IsAtEnd();
    Structure structure(type, static_cast<std::uint16_t>(line.Number()));
    line.Expect(":");
    while (!line.IsAtEnd())
        AddField(structure, line);
    return structure.Finished();
}

enum class Head { Entry32, Entry64, Block };

Bytes ReadHead(Head head, Reader& line, std::size_t tableLength)
{
    line.IsAtEnd();
    const unsigned char major = line.Byte();
    line.Expect(".");
    const unsigned char minor = line.Byte();
    std::map<std::string, std::uint64_t> options{{"table=", tableLength}, {"at=", 0}};
    for (auto& [name, value] : options) {
        line.IsAtEnd();
        if (line.Take(name))
            value = line.Number();
    }
    const auto address = static_cast<std::uint32_t>(options.at("at="));
    const std::size_t length = options.at("table=");
    Bytes bytes = head == Head::Entry32   ? EntryPoint(major, minor, length, address)
                  : head == Head::Entry64 ? EntryPoint64(major, minor, length, address)
                                          : BlockHeader(major, minor, length);
    while (!line.IsAtEnd()) {
        if (line.Take("length=")) {
            bytes = WithLength(bytes, line.Byte());
            continue;
        }
        line.Expect("[");
        unsigned char& byte = bytes.at(line.Number());
        line.Expect("]=");
        byte = line.Byte();
    }
    return bytes;
}

/// What a text has come to: its bytes, and how many of them are the table's.
struct State {
    Bytes All;
    std::size_t TableLength = 0;
    std::string Version = "2.7"; ///< empty: the text has an entry point
};

bool IsHead(Reader& line, Head& head)
{
    if (line.Take("entry64"))
        head = Head::Entry64;
    else if (line.Take("entry"))
        head = Head::Entry32;
    else if (line.Take("block"))
        head = Head::Block;
    else
        return false;
    return true;
}

Bytes HexBytes(Reader& line)
{
    Bytes bytes;
    while (!line.IsAtEnd())
        bytes.push_back(static_cast<unsigned char>(line.Number(16)));
    return bytes;
}

void ReadStatement(State& state, Reader line, std::size_t tableLength)
{
    Head head{};
    if (line.IsAtEnd() || line.Take("#") || line.Take("version"))
        return;
    if (IsHead(line, head)) {
        state.All = Join(std::move(state.All), ReadHead(head, line, tableLength));
        state.Version.clear();
        return;
    }
    if (line.Take("pad")) {
        line.IsAtEnd();
        state.All.resize(line.Number());
        return;
    }
    if (line.Take("cut")) {
        line.IsAtEnd();
        const std::size_t size = line.Number();
        state.All.resize(state.All.size() - size);
        state.TableLength -= size;
        return;
    }
    const Bytes more = line.Take("end") ? Table({}) : line.Take("hex") ? HexBytes(line) : ReadStructure(line);
    state.TableLength += more.size();
    state.All.insert(state.All.end(), more.begin(), more.end());
}

State Read(const std::string& text, std::size_t tableLength)
{
    State state;
    std::string parted = text;
    for (std::size_t at = 0; (at = parted.find(" | ", at)) != std::string::npos;)
        parted.replace(at, 3, "\n");
    std::istringstream lines(parted);
    for (std::string line; std::getline(lines, line);) {
        try {
            const std::size_t end = line.find_first_not_of("0123456789");
            const bool isRepeated = end != 0 && line.compare(std::min(end, line.size()), 2, "x ") == 0;
            const std::size_t copies = isRepeated ? std::stoul(line) : 1;
            const std::string statement = line.substr(isRepeated ? end + 2 : 0);
            if (statement.rfind("version ", 0) == 0)
                state.Version = statement.substr(8);
            for (std::size_t copy = 1; copy <= copies; ++copy)
                ReadStatement(state, Reader(statement, copy, copies), tableLength);
        } catch (const std::logic_error& error) {
            throw std::invalid_argument(line + " <- " + error.what());
        }
    }
    return state;
}

} // namespace

// Read once for the length of the table, which an entry point ahead of it gives.
Bytes FromText(const std::string& text)
{
    return Read(text, Read(text, 0).TableLength).All;
}

Bytes ImageFromText(const std::string& text)
{
    const std::string version = Read(text, 0).Version;
    return FromText(version.empty() ? text : text + "\nend\nentry " + version);
}

} // namespace Images
