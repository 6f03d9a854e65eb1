// What the library's work costs, as ratios measured in one run.
//
// Construction is held against its floor: the finished nodes, put from ready text into a hash map of full
// paths to nodes of their own, and freed. A query is held against copying its result, a visit of every node
// in place against a search for all of them. Pairs that form a ratio run interleaved, so that a machine that
// changes its pace changes both.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "bench/CountingNew.h"
#include "samples/Image.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <memory>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <unordered_map>
#include <vector>

namespace {

using Protocol::SMBIOS::NodeView;
using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Protocol::SMBIOS::TableImage;
using SearchResult = std::map<std::string, _XNode>;
using Images::Bytes;

constexpr const char* Root = "/SMBIOS";

struct Subject {
    std::string Name;
    std::string Path;
    TableImage Table;
    Reading How = Reading::ByVersion;

    std::unique_ptr<SMBIOSProtocolImpl> Object() const { return ObjectBy(How); }

    std::unique_ptr<SMBIOSProtocolImpl> ObjectBy(Reading how) const
    {
        return std::make_unique<SMBIOSProtocolImpl>(Table, how, Root);
    }

    SearchResult Search(const std::string& path) const
    {
        SearchResult result;
        Object()->SMBiosSearch(path, result);
        return result;
    }
};

// The nodes in the containers that the data model names, from ready text.
class Floor {
public:
    explicit Floor(const SearchResult& nodes)
    {
        for (const auto& [path, node] : nodes)
            Nodes.emplace(path, new _XNode(node));
    }
    ~Floor()
    {
        for (const auto& [path, node] : Nodes)
            delete node;
    }
    Floor(const Floor&) = delete;
    Floor& operator=(const Floor&) = delete;

private:
    std::unordered_map<std::string, _XNode*> Nodes;
};

void Construct(benchmark::State& state, const Subject& subject, Reading how)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(subject.ObjectBy(how));
}

void ConstructFloor(benchmark::State& state, const Subject& subject)
{
    const SearchResult nodes = subject.Search(Root);
    for (auto _ : state)
        benchmark::DoNotOptimize(Floor(nodes));
}

void Query(benchmark::State& state, const Subject& subject, const std::string& path)
{
    const auto object = subject.Object();
    for (auto _ : state) {
        SearchResult result;
        object->SMBiosSearch(path, result);
        benchmark::DoNotOptimize(result);
    }
}

void Find(benchmark::State& state, const Subject& subject, const std::string& path)
{
    const auto object = subject.Object();
    for (auto _ : state)
        benchmark::DoNotOptimize(object->Find(path));
}

// The bytes of text of a node and all below it.
std::size_t Visited(NodeView node)
{
    if (node.IsLeaf())
        return node.Path().size() + node.Value().size();
    std::size_t size = node.Path().size();
    for (const NodeView child : node.DistinctChildren())
        size += Visited(child);
    return size;
}

void Visit(benchmark::State& state, const Subject& subject)
{
    const auto object = subject.Object();
    for (auto _ : state)
        benchmark::DoNotOptimize(Visited(object->Find(Root)));
}

void CopyResult(benchmark::State& state, const Subject& subject, const std::string& path)
{
    const SearchResult nodes = subject.Search(path);
    for (auto _ : state) {
        SearchResult copy = nodes;
        benchmark::DoNotOptimize(copy);
    }
}

// The tool from its start to its end, with what it prints thrown away.
void RunTool(benchmark::State& state, const std::string& tool, const std::string& imagePath)
{
    std::string arguments[] = {tool, imagePath};
    char* const argv[] = {arguments[0].data(), arguments[1].data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        if (posix_spawn(&child, tool.c_str(), &actions, nullptr, argv, environ) != 0 ||
            waitpid(child, &status, 0) != child || status != 0)
            state.SkipWithError("the tool failed");
    }
    posix_spawn_file_actions_destroy(&actions);
}

// `count` memory devices, spread over a tenth as many arrays; a processor with a linked cache for each four.
Bytes Growing(int count)
{
    std::vector<Images::Structure> structures;
    const int arrays = std::max(1, count / 10);
    structures.reserve(static_cast<std::size_t>(count) + static_cast<std::size_t>(arrays));
    for (int i = 0; i < arrays; ++i)
        structures.push_back(Images::Structure(16, static_cast<std::uint16_t>(0x1000 + i))
                                 .Raw({3, 3, 6})
                                 .Dword(0x400000)
                                 .Word(0xFFFE)
                                 .Word(10));
    for (int i = 0; i < count; ++i)
        structures.push_back(Images::Structure(17, static_cast<std::uint16_t>(0x2000 + i))
                                 .Word(static_cast<unsigned int>(0x1000 + i % arrays))
                                 .Word(0xFFFE)
                                 .Raw({72, 0, 64, 0, 0, 8, 9, 0})
                                 .Text("D" + std::to_string(i))
                                 .Fill(11));
    return Images::Image(structures);
}

// By version, or with the newest catalogue where the version has none.
Reading ReadingOf(const TableImage& table)
{
    try {
        const SMBIOSProtocolImpl object(table, Reading::ByVersion);
        return Reading::ByVersion;
    } catch (const ResultStatus&) {
        return Reading::Newest;
    }
}

Subject Read(const std::string& path)
{
    const TableImage table = TableImage::FromFile(path);
    return {path.substr(path.find_last_of('/') + 1), path, table, ReadingOf(table)};
}

// Subjects are told apart by their names: files of one name get their whole paths.
void NameApart(std::vector<Subject>& subjects)
{
    std::map<std::string, int> count;
    for (const Subject& subject : subjects)
        ++count[subject.Name];
    for (Subject& subject : subjects) {
        if (count[subject.Name] > 1)
            subject.Name = subject.Path;
    }
}

// Collects the median time of each benchmark by name.
class Medians : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override
    {
        PrintBasicContext(&GetErrorStream(), context);
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median")
                Nanoseconds[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }

    double operator[](const std::string& name) const { return Nanoseconds.at(name); }

private:
    std::map<std::string, double> Nanoseconds;
};

void Register(const Subject& subject)
{
    const auto add = [&](const std::string& what, auto&&... arguments) {
        benchmark::RegisterBenchmark((subject.Name + "/" + what).c_str(), arguments...);
    };
    add("construct", Construct, subject, subject.How);
    add("newest", Construct, subject, Reading::Newest);
    add("floor", ConstructFloor, subject);
    add("leaf", Query, subject, std::string("/SMBIOS/Type0/BIOSVendor"));
    add("find", Find, subject, std::string("/SMBIOS/Type0/BIOSVendor"));
    add("subtree", Query, subject, std::string("/SMBIOS/Type0"));
    add("subtree copy", CopyResult, subject, std::string("/SMBIOS/Type0"));
    add("tree", Query, subject, std::string(Root));
    add("tree copy", CopyResult, subject, std::string(Root));
    add("visit", Visit, subject);
}

void PrintRow(const Subject& subject, const Medians& medians)
{
    const auto time = [&](const char* what) { return medians[subject.Name + "/" + what]; };
    const std::size_t nodes = subject.Search(Root).size();
    SearchResult newest;
    subject.ObjectBy(Reading::Newest)->SMBiosSearch(Root, newest);
    const double ofNewest = time("newest") / static_cast<double>(newest.size()) /
                            (time("construct") / static_cast<double>(nodes));
    const std::size_t before = CountingNew::Held;
    CountingNew::Peak = before;
    const auto object = subject.Object();
    const std::size_t held = CountingNew::Held - before, peak = CountingNew::Peak - before;
    std::printf(
        "| %-24s | %6zu | %9.1f | %5.2f | %6.2f | %5.0f | %5.1f | %6.3f | %5.2f | %5.2f | %5.0f | %5.2f |\n",
        subject.Name.c_str(), nodes, time("construct") / 1000, time("construct") / time("floor"), ofNewest,
        time("leaf"), time("find"), time("visit") / time("tree"), time("subtree") / time("subtree copy"),
        time("tree") / time("tree copy"), static_cast<double>(held) / static_cast<double>(nodes),
        static_cast<double>(peak) / static_cast<double>(held));
}

void PrintTable(const std::vector<Subject>& subjects, const Medians& medians)
{
    std::puts(
        "| image                    |  nodes | construct | / its | newest | leaf  | find  | visit/ |subtree"
        "| tree  | bytes | peak  |");
    std::puts(
        "|                          |        |        us | floor | a node |    ns |    ns | search | /copy "
        "| /copy |/ node | /held |");
    std::puts(
        "|--------------------------|-------:|----------:|------:|-------:|------:|------:|-------:|------:"
        "|------:|------:|------:|");
    for (const Subject& subject : subjects)
        PrintRow(subject, medians);
}

void PrintStart(const std::vector<Subject>& subjects, const Medians& medians)
{
    std::printf("\n| smbios-tree on           | ms a run | library's share |\n"
                "|--------------------------|---------:|----------------:|\n");
    for (const Subject& subject : subjects) {
        const auto time = [&](const char* what) { return medians[subject.Name + "/" + what]; };
        std::printf("| %-24s | %8.2f | %14.0f%% |\n", subject.Name.c_str(), time("tool") / 1e6,
                    100 * (time("newest") + time("tree")) / time("tool"));
    }
}

void PrintGrowth(const std::vector<Subject>& growing, const Medians& medians)
{
    std::printf("\n| structures |  nodes | construct ns a node | search ns a node |\n"
                "|-----------:|-------:|--------------------:|-----------------:|\n");
    for (const Subject& subject : growing) {
        const auto nodes = static_cast<double>(subject.Search(Root).size());
        std::printf("| %10s | %6.0f | %19.0f | %16.0f |\n", subject.Name.c_str(), nodes,
                    medians[subject.Name + "/construct"] / nodes, medians[subject.Name + "/tree"] / nodes);
    }
}

} // namespace

// Usage: bench [BENCHMARK OPTIONS] TOOL IMAGE...
int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::vector<Subject> subjects;
    if (argc < 3) {
        std::fputs("usage: bench [BENCHMARK OPTIONS] TOOL IMAGE...\n", stderr);
        return 2;
    }
    const std::string tool = argv[1];
    for (int i = 2; i < argc; ++i) {
        try {
            subjects.push_back(Read(argv[i]));
        } catch (const ResultStatus& failure) {
            std::fprintf(stderr, "bench: %s: %s\n", argv[i], failure.what());
            return 1;
        }
    }
    NameApart(subjects);
    std::vector<Subject> growing;
    for (const int count : {10, 100, 1000})
        growing.push_back(
            {std::to_string(count + std::max(1, count / 10)), "", TableImage::FromBytes(Growing(count))});

    for (const Subject& subject : subjects) {
        Register(subject);
        benchmark::RegisterBenchmark((subject.Name + "/tool").c_str(), RunTool, tool, subject.Path);
    }
    for (const Subject& subject : growing)
        Register(subject);
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);

    PrintTable(subjects, medians);
    PrintStart(subjects, medians);
    PrintGrowth(growing, medians);
}
