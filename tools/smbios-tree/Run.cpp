#include "Run.h"

#include "Console.h"
#include "Failure.h"
#include "NameList.h"
#include "Text.h"

#include <cstdio>
#include <new>
#include <utility>

namespace SmbiosTree {

namespace {

constexpr int Done = 0;
constexpr int Failed = 1;

// As diff has them.
constexpr int Different = 1;
constexpr int DiffTrouble = 2;

void Complain(const std::string& subject, const std::string& message)
{
    std::fprintf(stderr, "smbios-tree: %s: %s\n", Visible(subject).c_str(), message.c_str());
}

void ComplainOfDamage(const TableImage& table, const Input& input)
{
    const std::string damage = DamageOf(table);
    if (!damage.empty())
        Complain(NameOf(input), damage);
}

// Decodes an input into `tree`, and says where its table is less than whole.
void OpenInto(Tree& tree, const Input& input, const Arguments& arguments)
{
    Open(input, arguments.Manner, tree);
    if (tree.Table)
        ComplainOfDamage(*tree.Table, input);
}

// Writes a report. Where its size is limited, tries that out first: no report is cut off.
template <typename Write>
void Send(Output& out, const Arguments& arguments, Write write)
{
    if (arguments.Limit) {
        Output trial(*arguments.Limit);
        write(trial);
        trial.Finish();
    }
    write(out);
    out.Finish();
}

void Report(Output& out, const Tree& tree, const Selection& selection, const Input& input,
            const Arguments& arguments)
{
    switch (arguments.Form) {
    case Form::Flat:
        return Flat(out, selection, arguments.Style);
    case Form::Value:
        return Value(out, selection);
    case Form::Json:
        return Json(out, input, tree, selection);
    case Form::Html:
        return Html(out, tree, selection, NameOf(input), VersionText(tree));
    default:
        return Indented(out, selection, arguments.Style, Console::IsTerminal() ? VersionText(tree) : "");
    }
}

int ReportOne(Output& out, const Input& input, const Arguments& arguments)
{
    try {
        // The process ends behind the report: nobody waits until the tree is taken apart.
        static Tree* tree;
        tree = new Tree;
        OpenInto(*tree, input, arguments);
        const Selection selection = Select(*tree, arguments.Choice);
        Send(out, arguments, [&](Output& to) { Report(to, *tree, selection, input, arguments); });
        return Done;
    } catch (const Failure& failure) {
        Complain(NameOf(input), failure.what());
    } catch (const std::bad_alloc&) {
        Complain(NameOf(input), OutOfMemory().what());
    }
    return Failed;
}

// Gives whether the line has a tree.
bool ReportLine(Output& out, const Input& input, const Arguments& arguments)
{
    std::optional<Failure> failure;
    Tree tree;
    try {
        OpenInto(tree, input, arguments);
        const Selection selection = Select(tree, arguments.Choice);
        Send(out, arguments, [&](Output& to) { JsonLine(to, input, tree, selection); });
        return true;
    } catch (const Failure& raised) {
        failure = raised;
    } catch (const std::bad_alloc&) {
        failure = OutOfMemory();
    }
    if (!out.Retract()) // the front of the line is out
        throw OutputFailure(std::string(failure->what()) + "; the output is not complete");
    JsonLine(out, input, tree, *failure);
    out.Finish();
    return false;
}

// A failing input fails alone: its line says why, and the next one has its turn.
int ReportLines(Output& out, const Arguments& arguments)
{
    int status = Done;
    const auto report = [&](const Input& input) {
        if (!ReportLine(out, input, arguments))
            status = Failed;
    };
    for (const std::string& name : arguments.Inputs)
        report(name);
    if (arguments.InputsFile) {
        try {
            NameList names(*arguments.InputsFile, arguments.InputsEnd);
            for (std::string name; names.Next(name);)
                report(name);
        } catch (const Failure& failure) {
            Complain(NameOf(*arguments.InputsFile), failure.what());
            status = Failed;
        }
    } else if (arguments.Inputs.empty()) {
        report(std::nullopt);
    }
    return status;
}

int ReportDifferences(Output& out, const Arguments& arguments)
{
    Tree trees[2];
    std::vector<NodePair> pairs;
    std::size_t side = 0;
    try {
        OpenInto(trees[0], arguments.Inputs[0], arguments);
        side = 1;
        OpenInto(trees[1], arguments.Inputs[1], arguments);
        pairs = SelectBoth(trees[0], trees[1], arguments.Choice);
    } catch (const Failure& failure) {
        Complain(NameOf(arguments.Inputs[side]), failure.what());
        return DiffTrouble;
    }
    try {
        Send(out, arguments, [&](Output& to) { Differences(to, pairs, arguments.Style); });
        return out.Total() == 0 ? Done : Different;
    } catch (const Failure& failure) {
        Complain("the differences", failure.what());
    } catch (const std::bad_alloc&) {
        Complain("the differences", OutOfMemory().what());
    }
    return DiffTrouble;
}

int SaveDump(const Input& input, const Arguments& arguments)
{
    try {
        const TableImage table = Read(input);
        ComplainOfDamage(table, input);
        const std::optional<Version>& version = arguments.Manner.ReadAs;
        Save(version ? table.As(version->Major, version->Minor) : table, arguments.DumpFile);
        return Done;
    } catch (const SaveFailure& failure) {
        Complain(arguments.DumpFile, failure.what());
    } catch (const Failure& failure) {
        Complain(NameOf(input), failure.what());
    } catch (const std::bad_alloc&) {
        Complain(NameOf(input), OutOfMemory().what());
    }
    return Failed;
}

} // namespace

int Run(const Arguments& arguments)
{
    try {
        Output out;
        const Input first = arguments.Inputs.empty() ? Input() : arguments.Inputs.front();
        switch (arguments.Form) {
        case Form::JsonLines:
            return ReportLines(out, arguments);
        case Form::Diff:
            return ReportDifferences(out, arguments);
        case Form::Dump:
            return SaveDump(first, arguments);
        default:
            return ReportOne(out, first, arguments);
        }
    } catch (const OutputFailure& failure) {
        Complain("standard output", failure.what());
    } catch (const std::bad_alloc&) {
        Complain("memory", OutOfMemory().what());
    }
    return arguments.Form == Form::Diff ? DiffTrouble : Failed;
}

} // namespace SmbiosTree
